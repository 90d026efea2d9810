#include "front_ends/qt/fonts.h"

namespace solvanta::qt {
namespace {

QStringList substitutes(FontKind kind) {
    switch (kind) {
        case FontKind::Serif:
            return {"Liberation Serif", "DejaVu Serif"};
        case FontKind::FixedPitch:
            return {"Liberation Mono", "DejaVu Sans Mono"};
        case FontKind::Symbols:
            return {"DejaVu Sans"};
        case FontKind::Sans:
        case FontKind::Unknown:
            break;
    }
    return {"Liberation Sans", "DejaVu Sans"};
}

}  // namespace

QStringList font_families(const QString& name, FontKind otherwise) {
    const FontKind kind = font_kind(name.toStdString());
    QStringList families = substitutes(kind == FontKind::Unknown ? otherwise : kind);
    if (const QString asked = name.trimmed(); !asked.isEmpty() && !families.contains(asked)) {
        families.prepend(asked);
    }
    return families;
}

}  // namespace solvanta::qt

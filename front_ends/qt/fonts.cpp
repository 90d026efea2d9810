#include "front_ends/qt/fonts.h"

#include <QHash>

namespace solvanta::qt {
namespace {

const QHash<QString, FontKind>& known_families() {
    using enum FontKind;
    static const QHash<QString, FontKind> known{
        {"arial", Sans},
        {"calibri", Sans},
        {"helvetica", Sans},
        {"microsoft sans serif", Sans},
        {"ms sans serif", Sans},
        {"ms shell dlg", Sans},
        {"ms shell dlg 2", Sans},
        {"segoe ui", Sans},
        {"tahoma", Sans},
        {"verdana", Sans},
        {"cambria", Serif},
        {"georgia", Serif},
        {"ms serif", Serif},
        {"times", Serif},
        {"times new roman", Serif},
        {"consolas", FixedPitch},
        {"courier", FixedPitch},
        {"courier new", FixedPitch},
        {"lucida console", FixedPitch},
        {"segoe ui symbol", Symbols},
        {"symbol", Symbols},
    };
    return known;
}

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

FontKind font_kind(const QString& name) {
    return known_families().value(name.trimmed().toLower(), FontKind::Unknown);
}

QStringList font_families(const QString& name, FontKind otherwise) {
    const FontKind kind = font_kind(name);
    QStringList families = substitutes(kind == FontKind::Unknown ? otherwise : kind);
    if (const QString asked = name.trimmed(); !asked.isEmpty() && !families.contains(asked)) {
        families.prepend(asked);
    }
    return families;
}

}  // namespace solvanta::qt

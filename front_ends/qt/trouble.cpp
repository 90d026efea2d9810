#include "front_ends/qt/trouble.h"

#include <QSet>

#include "platform/trouble.h"

namespace solvanta::qt {

void report_once(const QString& name, const QString& trouble) {
    static QSet<QString> reported;
    if (reported.contains(name)) return;
    reported.insert(name);
    report_trouble((name + ": " + trouble).toStdString());
}

}  // namespace solvanta::qt

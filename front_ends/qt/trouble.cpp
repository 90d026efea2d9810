#include "front_ends/qt/trouble.h"

#include <iostream>

#include <QSet>

namespace solvanta::qt {

void report_once(const QString& name, const QString& trouble) {
    static QSet<QString> reported;
    if (reported.contains(name)) return;
    reported.insert(name);
    std::cerr << "Solvanta: " << name.toStdString() << ": " << trouble.toStdString() << std::endl;
}

}  // namespace solvanta::qt

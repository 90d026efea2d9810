#include <iostream>

#include <QApplication>
#include <QTemporaryFile>
#include <gtest/gtest.h>

#include "front_ends/qt/look.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // By itself the platform's screen is too small for the card table.
    QTemporaryFile screen;
    if (!screen.open()) return 1;
    screen.write(R"({"screens": [{"name": "test", "x": 0, "y": 0, "width": 1280, "height": 1024,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screen.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());
    // The platform tells at every window what it can't do; that is no news here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith("This plugin does not")) std::cerr << text.toStdString() << '\n';
    });
    QApplication application(argc, argv);
    solvanta::qt::prepare_application(application);
    return RUN_ALL_TESTS();
}

#include <QApplication>
#include <QLoggingCategory>

#include "app/form_main.h"
#include "front_ends/qt/display_probe.h"
#include "front_ends/qt/host.h"
#include "front_ends/qt/look.h"
#include "front_ends/qt/stop_signals.h"
#include "platform/trouble.h"

namespace {

constexpr int no_display = 69;  // the exit status by which scripts tell it from other failures

}  // namespace

int main(int argc, char** argv) {
    using namespace solvanta;
    qt::hold_standard_streams();
    if (!qt::display_available()) {
        report_trouble(
            "kein Bildschirm gefunden (DISPLAY ist nicht gesetzt oder nicht erreichbar).");
        return no_display;
    }
    // Where there is no locale in UTF-8 Qt takes another, and says so at length.
    QLoggingCategory::setFilterRules("default.warning=false");
    QApplication application(argc, argv);
    qt::prepare_application(application);
    qt::QtHost host;
    qt::on_stop_signals(application, [&host] { host.close_first(); });

    Form_Main table(host);
    table.Form_Load();
    host.show(table);
    return QApplication::exec();
}

#include <csignal>

#include <QByteArray>
#include <QLocale>
#include <QObject>
#include <QTest>
#include <gtest/gtest.h>

#include "front_ends/qt/display_probe.h"
#include "front_ends/qt/locale_texts.h"
#include "front_ends/qt/stop_signals.h"

namespace solvanta::qt {
namespace {

TEST(LocaleTexts, AreThoseOfTheUser) {
    const struct {
        const char* locale;
        const char* january;
        const char* december;
        const char* between_hour_and_minute;
        const char* decimal;
    } cases[] = {
        {"C", "Jan", "Dec", ":", "."},        {"de_DE", "Jan", "Dez", ":", ","},
        {"en_US", "Jan", "Dec", ":", "."},    {"fi_FI", "tammik", "jouluk", ".", ","},
        {"fr_CA", "janv", "déc", " h ", ","}, {"da_DK", "jan", "dec", ".", ","},
    };
    for (const auto& test : cases) {
        LocaleTexts texts = texts_of(QLocale(test.locale));
        // Some versions write a no-break space.
        const QString between =
            QString::fromStdString(texts.time_separator).replace(u'\u00a0', ' ');
        EXPECT_EQ(texts.month_abbreviations.front(), test.january) << test.locale;
        EXPECT_EQ(texts.month_abbreviations.back(), test.december) << test.locale;
        EXPECT_EQ(between, test.between_hour_and_minute) << test.locale;
        EXPECT_EQ(texts.decimal_separator, test.decimal) << test.locale;
    }
}

TEST(DisplayProbe, AsksWhatQtWouldUse) {
    const struct {
        const char* platform;
        const char* x_display;
        const char* wayland_display;
        bool available;
    } cases[] = {
        {"", "", "", false},
        {"", ":9999", "", false},
        {"", "", "no-such-socket", false},
        {"xcb", ":9999", "", false},
        {"wayland", "", "/tmp", false},
        {"offscreen", "", "", true},
        {"offscreen:configfile=x", ":9999", "", true},
        {"xcb;offscreen", ":9999", "", true},
    };
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    for (const auto& test : cases) {
        qputenv("QT_QPA_PLATFORM", test.platform);
        qputenv("DISPLAY", test.x_display);
        qputenv("WAYLAND_DISPLAY", test.wayland_display);
        EXPECT_EQ(display_available(), test.available) << test.platform << ' ' << test.x_display;
    }
    qputenv("QT_QPA_PLATFORM", before);
}

TEST(StopSignals, EndTheProgramInOrder) {
    int stops = 0;
    QObject owner;
    on_stop_signals(owner, [&] { ++stops; });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        EXPECT_EQ(raise(signal), 0);
        const int before = stops;
        EXPECT_TRUE(QTest::qWaitFor([&] { return stops == before + 1; }, 2000)) << signal;
    }
}

}  // namespace
}  // namespace solvanta::qt

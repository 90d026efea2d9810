#include <array>
#include <csignal>
#include <tuple>

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
    const std::array<const char*, 5> cases[] = {
        // January, December, between hour and minute, between units and tenths
        {"C", "Jan", "Dec", ":", "."},        {"de_DE", "Jan", "Dez", ":", ","},
        {"en_US", "Jan", "Dec", ":", "."},    {"fi_FI", "tammi", "joulu", ".", ","},
        {"fr_CA", "janv", "déc", " h ", ","}, {"da_DK", "jan", "dec", ".", ","},
    };
    for (const auto& [locale, january, december, in_times, in_numbers] : cases) {
        LocaleTexts texts = texts_of(QLocale(locale));
        // Some versions write a no-break space.
        const QString between =
            QString::fromStdString(texts.time_separator).replace(u'\u00a0', ' ');
        EXPECT_TRUE(texts.month_abbreviations.front().starts_with(january)) << locale;
        EXPECT_TRUE(texts.month_abbreviations.back().starts_with(december)) << locale;
        EXPECT_EQ(between, in_times) << locale;
        EXPECT_EQ(texts.decimal_separator, in_numbers) << locale;
    }
}

TEST(DisplayProbe, AsksWhatQtWouldUse) {
    // The platform, the display of X, that of Wayland, whether there is one.
    const std::tuple<const char*, const char*, const char*, bool> cases[] = {
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
    for (const auto& [platform, x_display, wayland_display, available] : cases) {
        qputenv("QT_QPA_PLATFORM", platform);
        qputenv("DISPLAY", x_display);
        qputenv("WAYLAND_DISPLAY", wayland_display);
        EXPECT_EQ(display_available(), available) << platform << ' ' << x_display;
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

#include <array>
#include <tuple>

#include <QByteArray>
#include <QLocale>
#include <gtest/gtest.h>

#include "front_ends/qt/display_probe.h"
#include "front_ends/qt/locale_texts.h"

namespace solvanta::qt {
namespace {

TEST(LocaleTexts, AreThoseOfTheUser) {
    const std::array<const char*, 5> cases[] = {
        // January, December, between hour and minute, between units and tenths
        {"C", "Jan", "Dec", ":", "."},
        {"de_DE", "Jan", "Dez", ":", ","},
        {"fr_CA", "janv", "déc", " h ", ","},
        {"da_DK", "jan", "dec", ".", ","},
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
        {"", ":9999", "", false},      {"", "", "no-such-socket", false},
        {"xcb", ":9999", "", false},   {"wayland", "", "/tmp", false},
        {"offscreen:x", "", "", true}, {"xcb;offscreen", ":9999", "", true},
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

}  // namespace
}  // namespace solvanta::qt

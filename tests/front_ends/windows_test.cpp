#include <chrono>
#include <thread>

#include "tests/front_ends/stage.h"

namespace solvanta::test {
namespace {

class Boxes : public FrontEnd {};
class Windows : public FrontEnd {};
class Timers : public FrontEnd {};

TEST_F(Boxes, AskInGermanAndAnswer) {
    using enum Answer;
    using Answers = std::vector<std::pair<std::optional<Key>, Answer>>;  // no key: the close box
    const std::tuple<Buttons, std::vector<std::string>, Answers> cases[] = {
        {Buttons::YesNo, {"Ja", "Nein"}, {{Key::Enter, Yes}, {{}, No}, {Key{'N'}, No}}},
        {Buttons::OkCancel, {"OK", "Abbrechen"}, {{Key::Enter, Ok}, {{}, Cancel}}},
        {Buttons::Ok, {"OK"}, {{Key::Enter, Ok}, {Key::Escape, Ok}}},
    };
    TestForm form;
    show(form);
    for (const auto& [buttons, captions, answers] : cases) {
        for (const auto& [key, answer] : answers) {
            when_box_opens([&, pressed = key, &shown = captions] {
                const BoxLook box = *driver().box();
                EXPECT_EQ(box.title + ": " + box.text, "Solvanta: <b>Größe?</b>");
                EXPECT_EQ(box.buttons, shown);
                if (!pressed) return driver().close("Solvanta");
                driver().key(*pressed, pressed == Key{'N'} ? Modifier::Alt : Modifier::None);
            });
            std::optional<Answer> given;
            host().ask("<b>Größe?</b>", buttons, [&](Answer answered) { given = answered; });
            EXPECT_FALSE(given);
            ASSERT_TRUE(wait_until([&] { return given.has_value(); }));
            EXPECT_EQ(given, answer) << captions.front();
            EXPECT_FALSE(driver().box());
        }
    }
}

TEST_F(Boxes, HaveBehindThemWhatGoesOnAndKeepTheMouseOut) {
    EntryForm form;
    int ticks = 0;
    int clicks = 0;
    Timer timer{10, [&] { form.Caption = std::to_string(++ticks); }};
    form.timers = {&timer};
    form.add_picture(0, 0, 20, 20).Click = [&] { ++clicks; };
    form.button.Click = [&] {
        form.frame.Visible = true;
        host().ask("Neues Spiel?", Buttons::YesNo, [&](Answer) { form.frame.Visible = false; });
    };
    show(form);
    when_box_opens([&] {
        tap(form, {10, 10});
        when([&, enough = ticks + 3] { return ticks >= enough; },
             [&] {
                 EXPECT_TRUE(driver().window(std::to_string(ticks)));
                 EXPECT_TRUE(driver().control(form, form.box).shown);
                 EXPECT_FALSE(driver().pixel(form, {40, 110}) == red);
                 driver().close("Solvanta");
             });
    });
    click(form, form.button);
    EXPECT_TRUE(wait_until([&] { return !driver().control(form, form.box).shown; }));
    EXPECT_EQ(clicks, 0);
}

TEST_F(Windows, AreHiddenClosedAndShownAgain) {
    TestForm form;
    show(form);
    int ticks = 0;
    Timer timer{5, [&ticks] { ++ticks; }};
    for (int round = 0; round < 2; ++round) {
        auto guest = std::make_unique<TestForm>("Gast");
        guest->timers = {&timer};
        guest->Closed = [&] {
            EXPECT_FALSE(driver().window("Gast"));
            guest.reset();
        };
        show(*guest);
        host().hide(*guest);
        driver().settle();
        EXPECT_FALSE(driver().window("Gast"));
        host().show(*guest);
        EXPECT_TRUE(wait_until([&] { return ticks > 0 && driver().window("Gast"); }));
        driver().close("Gast");
        driver().settle();
        EXPECT_EQ(guest, nullptr);
        ticks = 0;
        driver().wait(30);
        EXPECT_EQ(ticks, 0);
    }
    EXPECT_TRUE(driver().window("Probe"));
    host().hide(form);
    driver().settle();
    EXPECT_FALSE(driver().window("Probe"));
}

TEST_F(Windows, ComeToTheFrontAtTheirSize) {
    TestForm table;
    TestForm help("Hilfe");
    show(table);
    show(help);
    driver().minimise("Hilfe");
    driver().settle();
    show(help);
    ASSERT_TRUE(wait_until([&] { return driver().window("Hilfe")->width == 300; }));
    EXPECT_TRUE(wait_until([&] { return driver().control(help, help.button).focused; }));
    show(table);
    EXPECT_TRUE(wait_until([&] { return !driver().window("Hilfe")->active; }));
    driver().resize(table, 1.5);
    press_key(Key{'0'}, Modifier::Control);
    for (const char* caption : {"Probe", "Hilfe"}) {
        const WindowLook look = *driver().window(caption);
        EXPECT_TRUE(look.width == 300 && look.height == 200) << look.width << " " << look.height;
        EXPECT_TRUE(look.can_be_minimised || look.is_within_page);
        EXPECT_EQ(look.can_be_resized, !look.is_within_page);
    }
}

// A desktop that saves its state ends nothing. Whatever ends the program while a box is open ends
// the box too, and nothing more is heard of it.
TEST_F(Windows, EndTheProgramEvenBelowABox) {
    for (const bool by_the_desktop : {true, false}) {
        start_anew();
        TestForm form;
        TestForm other("Hilfe");
        std::string log;
        form.Saving = [&] { log += "saving "; };
        const auto ask = [&] {
            host().ask("Neues Spiel?", Buttons::YesNo, [&](Answer) { log += "answered "; });
        };
        form.button.Click = ask;
        form.Closed = [&] {
            log += "closed ", host().quit();
            driver().save_desktop();  // all of this is too late
            host().show(other);
            ask();
        };
        show(form);
        show(other);
        driver().save_desktop();
        driver().settle();
        show(form);
        when_box_opens([&] {
            driver().save_desktop();
            by_the_desktop ? driver().close(form.Caption) : form.Closed();
        });
        driver().later(0, [&] { tap(form, place_of(form, form.button).centre()); });
        EXPECT_TRUE(driver().run());
        EXPECT_EQ(log, "saving saving closed ");
        EXPECT_TRUE(wait_until([&] {
            return !driver().window("Probe") && !driver().window("Hilfe") && !driver().box();
        }));
    }
}

// A timer set anew after each handler would need 60 ms for each tick.
TEST_F(Timers, NeitherDriftNorLoseATick) {
    using namespace std::chrono;
    const auto now = steady_clock::now;
    TestForm form;
    int ticks = 0;
    Timer timer{50, [&] { std::this_thread::sleep_for(milliseconds(++ticks == 1 ? 600 : 10)); }};
    form.timers = {&timer};
    const auto before = now();
    host().show(form);
    const auto after = now();
    EXPECT_TRUE(wait_until([&] { return ticks >= 40 && ticks >= (now() - after) / 50ms - 4; }));
    EXPECT_LE(ticks, (now() - before) / 50ms);
}

}  // namespace
}  // namespace solvanta::test

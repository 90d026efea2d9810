#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "fuzz/require.h"
#include "scores/best_times_format.h"
#include "tests/support/player.h"

namespace solvanta::fuzz {
namespace {

/// The bytes of the input, one after the other; zero beyond their end.
class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    bool at_end() const { return next_ == end_; }

    int take() { return at_end() ? 0 : *next_++; }

    int below(int limit) { return take() % limit; }

  private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

std::map<std::string, std::string> files_at_start(int kind) {
    const std::string line = "61,\"J\xF6rg\",\"3. M\xE4r 2004 9:05\"\r\n";
    std::map<std::string, std::string> files{{"/nowhere/Help.rtf", "{\\rtf1 Hilfe}"}};
    if (kind > 0) files[test::MemoryFiles::list_path] = line + "7\r\n";
    if (kind == 2) {
        for (int place = 2; place <= best_places; ++place)
            files[test::MemoryFiles::list_path] += line;
    }
    return files;
}

/// A player who does whatever the bytes say, and a desk and a disk that do the same.
class Play {
  public:
    explicit Play(Bytes bytes) : bytes_(bytes), player_(1, files_at_start(bytes_.below(3))) {
        player_.host.during_message = [this] { answer(); };
    }

    void run() {
        while (!bytes_.at_end() && !player_.host.has_quit) {
            step();
            player_.check();
            check_entry();
        }
        write_for_good();
    }

  private:
    void step() {
        constexpr std::array steps{
            &Play::click,      &Play::click,      &Play::click_twice, &Play::click_twice,
            &Play::press,      &Play::release,    &Play::press_twice, &Play::click_stock,
            &Play::tick,       &Play::deal,       &Play::show_list,   &Play::show_help,
            &Play::press_key,  &Play::type,       &Play::close,       &Play::clear_list,
            &Play::hide_list,  &Play::save,       &Play::break_files, &Play::repair_files,
            &Play::nearly_won, &Play::click_waste};
        (this->*steps.at(static_cast<std::size_t>(bytes_.below(steps.size()))))();
    }

    /// Any place, a 256th of the window's sides apart.
    std::pair<Twips, Twips> place() {
        const Form& form = player_.table;
        const Twips x = form.ClientWidth * bytes_.take() / 256;
        return {x, form.ClientHeight * bytes_.take() / 256};
    }

    /// The middle of a column's exposed card.
    std::pair<Twips, Twips> column() {
        const PictureElement& card = player_.table.Iv(1)(bytes_.below(columns));
        return {card.Left + card.Width / 2, card.Top + card.Height / 2};
    }

    void click_at(std::pair<Twips, Twips> at) { hand_.click(at.first, at.second); }

    void click() { click_at(column()); }

    void click_twice() {
        const auto at = bytes_.below(4) == 0 ? waste() : column();
        click_at(at);
        hand_.double_press(at.first, at.second);
        hand_.release(at.first, at.second);
    }

    std::pair<Twips, Twips> waste() const {
        return {player_.table.Source.Left + 10, player_.table.Source.Top + 500};
    }

    void click_waste() { click_at(waste()); }

    void click_stock() {
        const PictureElement& stock = player_.table.Source_Hide;
        click_at({stock.Left + 10, stock.Top + 10});
    }

    void press() {
        const auto [x, y] = place();
        hand_.press(x, y);
    }

    void release() {
        const auto [x, y] = place();
        hand_.release(x, y);
    }

    void press_twice() {
        const auto [x, y] = place();
        hand_.double_press(x, y);
    }

    void tick() { player_.table.Timer1.Tick(); }

    void deal() { player_.table.Command1.Click(); }

    void show_list() { player_.table.Comm_highscore.Click(); }

    void show_help() { player_.table.Command3.Click(); }

    /// Keys reach the box only while it can be used.
    void press_key() {
        const int key = bytes_.take();
        if (player_.table.FrBestzeiteintrag.Enabled) player_.table.InName.KeyDown(key % 32);
    }

    void type() {
        std::string text;
        for (int length = bytes_.below(40); length > 0; --length)
            text += static_cast<char>(bytes_.take());
        if (player_.table.FrBestzeiteintrag.Enabled) player_.table.InName.Text = text;
    }

    template <typename Window>
    Window* shown(const char* caption) {
        for (Form* form : player_.host.visible) {
            if (form->Caption == caption) return static_cast<Window*>(form);
        }
        return nullptr;
    }

    BestTimesWindow* list() { return shown<BestTimesWindow>("Highscores - Top 30"); }

    void clear_list() {
        if (BestTimesWindow* window = list()) window->Comm_clear_highscore.Click();
    }

    void hide_list() {
        if (BestTimesWindow* window = list()) window->Command_Ok.Click();
    }

    /// Any of the windows; with the table the program ends.
    void close() {
        const int which = bytes_.below(8);
        if (which == 0) return player_.host.close(player_.table);
        if (which == 1) return player_.table.Command_Beenden.Click();
        Form* window = which < 5 ? static_cast<Form*>(list()) : shown<HelpWindow>("Hilfe");
        if (window) player_.host.close(*window);
    }

    void save() { player_.table.Saving(); }

    void break_files() {
        static const std::array<std::string, 9> names{
            "create", "open", "write", "flush", "close", "cut", "rename", "remove", "sync"};
        const std::string& failing = names.at(static_cast<std::size_t>(bytes_.below(names.size())));
        const std::errc error =
            bytes_.below(2) == 0 ? std::errc::permission_denied : std::errc::no_space_on_device;
        player_.files.before = [&failing, error](const std::string& name) {
            return name == failing ? std::make_error_code(error) : std::error_code{};
        };
    }

    void repair_files() { player_.files.before = nullptr; }

    /// One double click from a win; a name being entered would not be open there.
    void nearly_won() {
        if (player_.table.state.NameEntryOpen) return;
        static const GameState position = test::parse_position("F 13 13 13 13 13 13 13 12; 4 XK");
        player_.set_up(position);
        player_.table.state.Seconds = bytes_.take();
    }

    /// What may happen while a box is open, and how it is answered.
    void answer() {
        if (player_.host.messages.size() > 1)
            player_.host.messages.erase(player_.host.messages.begin());
        const int what = bytes_.take();
        if ((what & 4) != 0) tick();
        if ((what & 8) != 0) save();
        if ((what & 16) != 0) close();
        const bool first = (what & 3) != 0;
        switch (player_.host.messages.back().second) {
            case Buttons::YesNo:
                return player_.host.answers.push_back(first ? Answer::Yes : Answer::No);
            case Buttons::OkCancel:
                return player_.host.answers.push_back(first ? Answer::Ok : Answer::Cancel);
            case Buttons::Ok:
                return player_.host.answers.push_back(Answer::Ok);
        }
    }

    void check_entry() const {
        const Form_Main& table = player_.table;
        const bool open = table.state.NameEntryOpen;
        require(table.FrBestzeiteintrag.Visible == open &&
                    table.FrBestzeiteintrag.Enabled == open && table.Diddle.Visible == open,
                "The name entry is not shown as it is.");
        // A box that is open at the end is never answered.
        require(!table.Scull.Visible || player_.host.has_quit, "The skull stays.");
    }

    /// Once the files work, the next write brings everything to the disk.
    void write_for_good() {
        repair_files();
        player_.table.write_Highscore();
        require(player_.files.files.at(test::MemoryFiles::list_path) ==
                    format_best_times(player_.table.state),
                "The list does not reach the disk.");
        require(player_.files.files.size() == 2, "A file was left behind.");
    }

    Bytes bytes_;
    test::Player player_;
    test::Hand hand_{player_.table};
};

}  // namespace
}  // namespace solvanta::fuzz

extern "C" int LLVMFuzzerInitialize(const int* count, char*** arguments) {
    testing::GTEST_FLAG(throw_on_failure) = true;
    int none = 1;
    testing::InitGoogleTest(&none, *arguments);
    return *count > 0 ? 0 : 1;
}

/// Plays the bytes as events. After each the record is consistent and every element shows it; at
/// the end the list is whole on the disk.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvanta::fuzz;
    Play(Bytes(data, size)).run();
    return 0;
}

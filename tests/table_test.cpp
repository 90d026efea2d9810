#include <algorithm>
#include <array>

#include <gtest/gtest.h>

#include "tests/support/player.h"
#include "tests/support/position.h"
#include "tests/support/table_check.h"
#include "view/pictures.h"
#include "view/table_display.h"

namespace solvanta::test {
namespace {

TEST(Table, ShowsNothingButButtonsAtStart) {
    Player player;
    const Form_Main& table = player.table;
    for (const auto& row : table.Ih) {
        for (const PictureElement& slot : row) {
            EXPECT_FALSE(slot.Visible);
            EXPECT_EQ(slot.Picture.path(), program_file("/nowhere", "Back_verdeckt.bmp"));
        }
    }
    for (const auto& row : table.Iv) {
        for (const PictureElement& slot : row)
            EXPECT_FALSE(slot.Visible);
    }
    for (const PictureElement& slot : table.Stapel) {
        EXPECT_TRUE(slot.Visible && slot.Picture.path().empty());
    }
    EXPECT_TRUE(table.Source.Visible && table.Source.Picture.path().empty());
    EXPECT_TRUE(table.Source_Hide.Visible && table.Source_Hide.Picture.path().empty());
    EXPECT_FALSE(table.zeiger.Visible || table.Diddle.Visible || table.Scull.Visible);
    EXPECT_FALSE(table.FrBestzeiteintrag.Visible || table.FrBestzeiteintrag.Enabled);
    EXPECT_EQ(table.Status.Caption + table.Zeitanzeige.Caption, "");
    EXPECT_EQ(table.zeiger.Picture.path(), program_file("/nowhere", "zeiger.bmp"));
    EXPECT_EQ(table.Diddle.Picture.path(), program_file("/nowhere", "diddle.jpg"));
    EXPECT_EQ(table.Scull.Picture.path(), program_file("/nowhere", "skull.gif"));
}

TEST(Table, IgnoresTheMouseBeforeTheFirstDeal) {
    Player player;
    for (Twips y = 0; y < player.table.ClientHeight; y += 240) {
        for (Twips x = 0; x < player.table.ClientWidth; x += 240)
            player.double_click(x, y);
    }
    EXPECT_FALSE(game_dealt(player.table.state));
    EXPECT_TRUE(player.host.messages.empty());
    EXPECT_FALSE(player.table.zeiger.Visible);
    EXPECT_EQ(player.table.Status.Caption, "");
}

TEST(Table, NamesNoPictureForWhatIsNoCard) {
    EXPECT_EQ(CardPicturePath("d", 52), program_file("d", "Kreuz_K.bmp"));
    for (const CardNumber card : {-1, 0, 53})
        EXPECT_EQ(CardPicturePath("d", card), "");
}

TEST(Table, TurnsUpACardWhereNoneIsOpen) {
    Player player;
    player.set_up("3 H1 H2 H3 H4 | H5; 5 H6 | H7");
    GameState& state = player.table.state;
    state.FaceUpCount(3) = state.FaceUpCount(5) = 0;
    RefreshTable(state, player.table, player.host.directory);
    EXPECT_EQ(player.position().substr(player.position().find("; 3")), "; 3 H1 H2 H3 | H4?; 5 H6?");
    expect_table_shows(player.table, player.host.directory);
}

TEST(Table, LoadsItsPicturesAgainAtEachRefresh) {
    Player player;
    player.deal();
    const Form_Main& table = player.table;
    const std::array shown{&table.Source, &table.Stapel(0), &table.Iv(1)(4)};
    std::array<std::uint64_t, 3> before{};
    const auto load_number = [](const auto* slot) { return slot->Picture.load_number(); };
    std::transform(shown.begin(), shown.end(), before.begin(), load_number);
    player.play("c5");
    for (std::size_t i = 0; i < shown.size(); ++i)
        EXPECT_GT(load_number(shown.at(i)), before.at(i));
}

TEST(Table, LetsTheMouseThroughThePointer) {
    Player player;
    player.set_up("W H5");
    player.play("waste");
    player.click(player.table.zeiger.Left + 300, player.table.zeiger.Top + 200);
    EXPECT_FALSE(player.table.zeiger.Visible);
}

TEST(Table, ClicksNeedPressAndReleaseOnOneElement) {
    Player player;
    player.set_up("1 H5; 2 P9");
    Mouse mouse(player.table);
    mouse.press(200, 1900);
    mouse.release(1400, 1900);
    mouse.press(1250, 1900);  // between the columns
    mouse.release(200, 1900);
    mouse.release(200, 1900);
    EXPECT_EQ(player.position(), print_position(parse_position("1 H5; 2 P9")));
}

TEST(Table, TakesASecondPressWithoutAFirstForAFirst) {
    Player player;
    player.set_up("1 H1");
    Mouse mouse(player.table);
    mouse.double_press(200, 1900);
    mouse.release(200, 1900);
    EXPECT_EQ(player.position(), print_position(parse_position("1 H1; sel 1")));
    mouse.forget_press();  // a box was clicked in between
    mouse.double_press(200, 1900);
    mouse.release(200, 1900);
    EXPECT_EQ(player.position(), print_position(parse_position("1 H1")));
    mouse.double_press(200, 1900);
    EXPECT_EQ(player.position(), print_position(parse_position("F 1")));
}

}  // namespace
}  // namespace solvanta::test

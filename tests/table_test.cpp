#include <gtest/gtest.h>

#include "tests/support/player.h"
#include "tests/support/position.h"
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
            EXPECT_EQ(slot.Picture.path(), "/nowhere/Back_verdeckt.bmp");
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
    EXPECT_EQ(table.zeiger.Picture.path(), "/nowhere/zeiger.bmp");
    EXPECT_EQ(table.Diddle.Picture.path(), "/nowhere/diddle.jpg");
    EXPECT_EQ(table.Scull.Picture.path(), "/nowhere/skull.gif");
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

TEST(Table, NamesEveryCardsPicture) {
    const std::pair<CardNumber, const char*> names[] = {
        {1, "d/Herz_1.bmp"},
        {10, "d/Herz_10.bmp"},
        {11, "d/Herz_B.bmp"},
        {12, "d/Herz_D.bmp"},
        {13, "d/Herz_K.bmp"},
        {14, "d/Pick_1.bmp"},
        {27, "d/Karo_1.bmp"},
        {39, "d/Karo_K.bmp"},
        {40, "d/Kreuz_1.bmp"},
        {52, "d/Kreuz_K.bmp"},
        {0, ""},
        {53, ""},
        {-1, ""},
    };
    for (const auto& [card, path] : names)
        EXPECT_EQ(CardPicturePath("d", card), path);
}

TEST(Table, FitsTheFullestColumn) {
    Player player;
    player.set_up("1 H1 P1 K1 X1 H2 P2 K2 X2 H5 | HK PD HB P10 H9 P8 H7 P6 K5 P4 H3 X2 H1");
    const Form_Main& table = player.table;
    EXPECT_EQ(table.Iv(13)(0).Top, 2880);
    EXPECT_EQ(table.Iv(2)(0).Top, 5520);
    EXPECT_EQ(table.Iv(1)(0).Top, 5760);
}

TEST(Table, TurnsUpACardWhereNoneIsOpen) {
    for (const int down : {1, 4}) {
        Player player;
        player.deal();
        GameState& state = player.table.state;
        for (int r = 1; r <= down; ++r)
            state.FaceDown(3)(r) = r;
        state.FaceDownCount(3) = down;
        state.FaceUpCount(3) = 0;
        ShowFaceUpCards(state, player.table, "/nowhere");
        EXPECT_EQ(state.FaceUp(3)(1), down);
        EXPECT_EQ(state.FaceUpCount(3), 1);
        EXPECT_EQ(state.FaceDownCount(3), down - 1);
        EXPECT_TRUE(state.Covered(3));
        const PictureElement& slot = player.table.Iv(1)(2);
        EXPECT_TRUE(slot.Visible);
        EXPECT_EQ(slot.Top, 1800 + 120 * (down - 1));
        EXPECT_EQ(slot.Picture.path(), "/nowhere/Back_ganz.bmp");
        EXPECT_FALSE(player.table.Ih(down)(2).Visible);
        for (int r = 1; r < down; ++r)
            EXPECT_TRUE(player.table.Ih(r)(2).Visible);
    }
}

TEST(Table, LoadsItsPicturesAgainAtEachRefresh) {
    Player player;
    player.deal();
    const auto loads = [&] {
        return std::vector{player.table.Source.Picture.load_number(),
                           player.table.Stapel(0).Picture.load_number(),
                           player.table.Iv(1)(4).Picture.load_number()};
    };
    const auto before = loads();
    player.play("c5");
    const auto after = loads();
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_NE(before[i], after[i]);
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

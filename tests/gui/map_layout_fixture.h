#pragma once

#include "pages/map_layout_page.h"

#include "app/picture_view.h"
#include "tests/gui/page_support.h"
#include "tests/gui/picture_events.h"
#include "tests/pages/map_layout_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace velko::test::map_layout {

inline constexpr std::uint8_t kInside = 0x6E;
inline constexpr std::uint8_t kPartner = 0x48;

inline const std::string kNoMap =
    "This Room has no Map Layout data. (Height and Width are both 0). If you want to use this Room "
    "Id, please go to Data Management and use the \"Allocate unique data\" function under the "
    "\"Map layout\" category.";
inline const std::string kPartnerQuestion =
    "This Room Id points to the same data as \"Id 48: Area 2 Indoor\", but has different Height "
    "and Width, so changing those here will corrupt that Room's layout data. Do you want to fix "
    "the Room size to be synchronized with Id 48? (Once you do, this message won't appear "
    "anymore).";

// The template's numbers of the controls.
enum Control {
    kHeightGrow = 1089,
    kHeightShrink = 1090,
    kWidthGrow = 1032,
    kWidthShrink = 1091,
    kMoveUp = 1136,
    kMoveDown = 1033,
    kMoveLeft = 1071,
    kMoveRight = 1137,
};
inline constexpr int kChangingButtons[] = {kHeightGrow, kHeightShrink, kWidthGrow, kWidthShrink,
                                           kMoveUp,     kMoveDown,     kMoveLeft,  kMoveRight};

// A page of 900 x 640 on room 0, which shows its six cells in the largest size, 128 x 120. Rooms 2
// and 0x1A are of one map and size with it, room 3 has its map in another size.
class MapLayoutPageTest : public ColouredMapTest {
protected:
    MapLayoutPageTest() : ColouredMapTest(0x70)
    {
        for (const std::uint32_t room : {0x02U, 0x03U, 0x1AU})
            game.shareAll(room, 0);
        game.setStoredSize(3, 5, 1);
        start();
        state.config.setValue(MiscField::rooms, 0x70);
        page = std::make_unique<MapLayoutPage>(state, prompt);
        showPage(*page, {900, 640});
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return controlOf<Widget>(*page, id);
    }
    PictureView& grid() const { return control<PictureView>(1084); }
    PictureView& preview() const { return control<PictureView>(1085); }
    QListView& list() const { return control<QListView>(1086); }
    QScrollBar& bar(const char* name) const { return *page->findChild<QScrollBar*>(name); }
    QString heightText() const { return control<QLabel>(1087).text(); }
    QString widthText() const { return control<QLabel>(1088).text(); }
    QString roomsText() const { return control<QLineEdit>(1209).text(); }

    void press(int button) const
    {
        QTest::mouseClick(&control<QAbstractButton>(button), Qt::LeftButton);
    }
    void clickCell(int row, int column) const
    {
        clickPicture(grid(), {column * 128 + 64, row * 120 + 60});
    }
    void moveHolding(int x, int y, Qt::MouseButton button) const
    {
        moveOverPicture(grid(), {x, y}, button);
    }
    void chooseLine(int line) const
    {
        const QModelIndex index = list().model()->index(line, 0);
        list().scrollTo(index);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(index).center());
    }
    // The line that is selected; -1 for none.
    int chosenLine() const
    {
        const QModelIndexList lines = list().selectionModel()->selectedIndexes();
        return lines.isEmpty() ? -1 : lines.front().row();
    }
    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
    }
    // Away from the cell's number.
    Pixel cellPixel(std::uint32_t row, std::uint32_t column) const
    {
        return grid().picture().at(column * 128 + 110, row * 120 + 100);
    }
    bool cellIsFramed(std::uint32_t row, std::uint32_t column) const
    {
        const PixelImage& picture = grid().picture();
        return picture.at(column * 128, row * 120) == 0x000000
            && picture.at(column * 128 + 1, row * 120 + 1) == 0xFFFFFF
            && picture.at(column * 128 + 127, row * 120 + 119) == 0x000000;
    }
    void expectSelected(std::uint32_t row, std::uint32_t column, int screen, Pixel colour) const
    {
        EXPECT_TRUE(cellIsFramed(row, column));
        EXPECT_EQ(chosenLine(), screen);
        EXPECT_EQ(preview().picture(), PixelImage(256, 240, colour));
    }
    bool changingButtonsAre(bool enabled) const
    {
        for (const int button : kChangingButtons) {
            if (control(button).isEnabled() != enabled)
                return false;
        }
        return true;
    }

    const Bytes kRows = {0xEE, 0, 1, 2, 0xEE, 0xEE, 3, 4, 5, 0xEE};
    ScriptedPrompt prompt;
    std::unique_ptr<MapLayoutPage> page;
};

} // namespace velko::test::map_layout

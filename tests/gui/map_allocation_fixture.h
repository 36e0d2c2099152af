#pragma once

#include "pages/map_allocation_page.h"

#include "app/hex_edit.h"
#include "app/picture_view.h"
#include "tests/gui/page_support.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTest>
#include <memory>

namespace velko::test::map_allocation {

using Words = std::vector<std::uint16_t>;

// Room 0 has the screens $8600, $8680 and $C808; room 1 has $8640; room 2 has none; room 3 has
// 256. The area has 272 screens from $8600 on.
class MapAllocationPageTest : public testing::Test {
protected:
    MapAllocationPageTest()
    {
        game.addScreen(Bytes(64, 1)); // $8640
        game.addScreen(Bytes(64, 2)); // $8680
        game.setScreenList(0, {0x8600, 0x8680, 0xC808});
        game.setScreenList(1, {0x8640});
        game.setScreenList(2, {});
        game.setScreenList(3, Words(256, 0x8640));
        game.config.setValue(MiscField::mapIndexes, 272);
        // Each of the first three screens has one colour.
        game.setBackgroundBlock(0, 0, Bytes(64, 0xFF)); // solid tiles of value 3
        game.setTile32(0, {{0, 0, 0, 0, 0x00}, {0, 0, 0, 0, 0x55}, {0, 0, 0, 0, 0xAA}});
        game.setPalette(0, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
        game.loadInto(state);
        open();
    }
    void open()
    {
        page = std::make_unique<MapAllocationPage>(state, prompt);
        showPage(*page, {1000, 560});
        loaded = image();
    }

    template <typename Control> Control& control(const char* name) const
    {
        return controlOf<Control>(*page, name);
    }
    QListView& list() const { return control<QListView>("screenList"); }
    HexEdit& addressEdit() const { return control<HexEdit>("addressEdit"); }
    HexEdit& indexEdit() const { return control<HexEdit>("indexEdit"); }
    QScrollBar& bar() const { return control<QScrollBar>("indexBar"); }
    PictureView& view() const { return control<PictureView>("screenView"); }
    std::string freeSpace() const { return control<QLabel>("freeSpaceValue").text().toStdString(); }

    void click(const char* button) const
    {
        QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton);
    }
    void clickLine(int row) const
    {
        const QRect line = list().visualRect(list().model()->index(row, 0));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, line.center());
    }
    void clickBar(QStyle::SubControl part) const
    {
        QStyleOptionSlider option;
        option.initFrom(&bar());
        option.orientation = bar().orientation();
        option.minimum = bar().minimum();
        option.maximum = bar().maximum();
        option.pageStep = bar().pageStep();
        option.sliderPosition = option.sliderValue = bar().value();
        option.subControls = QStyle::SC_All;
        option.state |= QStyle::State_Horizontal;
        const QRect box =
            bar().style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar());
        QTest::mouseClick(&bar(), Qt::LeftButton, {}, box.center());
    }
    static void type(HexEdit& box, const char* text) { typeInto(box, text); }
    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
        loaded = image();
    }

    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The words of the current room's list and of what follows it.
    Words words(std::uint32_t count) const
    {
        Words all;
        for (std::uint32_t i = 0; i < count; ++i)
            all.push_back(state.store.pahMapAlloc.dataWord(2 * i));
        return all;
    }
    std::vector<std::string> lines() const
    {
        std::vector<std::string> all;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            all.push_back(list().model()->index(row, 0).data().toString().toStdString());
        return all;
    }
    // All that shows the selected entry agrees.
    void expectShown(int row, std::uint16_t address, const char* addressText, const char* indexText,
                     int barPosition) const
    {
        EXPECT_EQ(list().currentIndex().row(), row);
        EXPECT_TRUE(list().selectionModel()->isRowSelected(row, {}));
        EXPECT_EQ(list().selectionModel()->selectedIndexes().size(), 1);
        EXPECT_EQ(addressEdit().text(), addressText);
        EXPECT_EQ(indexEdit().text(), indexText);
        EXPECT_EQ(bar().value(), barPosition);
        expectPreview(address);
    }
    void expectPreview(std::uint16_t address) const
    {
        PixelImage expected(256, 240);
        state.renderer.drawScreen(expected, 0, 0, address);
        EXPECT_EQ(view().picture(), expected);
    }

    TestRom game;
    mutable EditorState state;
    ScriptedPrompt prompt;
    std::unique_ptr<MapAllocationPage> page;
    Bytes loaded;
};

} // namespace velko::test::map_allocation

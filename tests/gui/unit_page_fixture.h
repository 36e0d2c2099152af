#pragma once

#include "app/hex_edit.h"
#include "app/picture_view.h"
#include "pages/unit_placement_page.h"
#include "tests/gui/page_support.h"
#include "tests/pages/unit_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace velko::test {

// The template's numbers of the controls.
enum UnitControl {
    kVramSetup = 1118,
    kLoadList = 1119,
    kView = 1122,
    kHorizontalBar = 1127,
    kVerticalBar = 1128,
    kUnitList = 1129,
    kType = 1130,
    kPixelX = 1131,
    kPixelY = 1132,
    kScreenX = 1133,
    kScreenY = 1134,
    kLoadId = 1143,
    kInsert = 1149,
    kDelete = 1150,
    kRemove = 1151,
    kNew = 1152,
    kPlaced = 1156,
    kSprites = 1168,
    kAnimate = 1169,
};

// The page on room 0, 768 x 480 pixels of which 320 x 320 show in 416 x 375, with an animated unit
// at (100, 51), a marker at (200, 101) and a still unit without a placement. Its timer stands; the
// tests call tick().
class UnitPageTest : public UnitGameTest {
protected:
    UnitPageTest()
    {
        game.setRoomUnits(kUnits);
        game.loadInto(state);
        page = std::make_unique<UnitPlacementPage>(state, prompt);
        page->setup();
        timer().stop();
        page->refresh();
        page->resize(1000, 640);
        showActive(*page);
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return controlOf<Widget>(*page, id);
    }
    QTimer& timer() const
    {
        const auto timers = page->findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
        if (timers.size() != 1)
            throw std::runtime_error("one timer expected");
        return *timers.front();
    }
    PictureView& view() const { return control<PictureView>(kView); }
    QListView& units() const { return control<QListView>(kUnitList); }
    QListView& loads() const { return control<QListView>(kLoadList); }
    QComboBox& type() const { return control<QComboBox>(kType); }
    QComboBox& loadId() const { return control<QComboBox>(kLoadId); }
    QCheckBox& placed() const { return control<QCheckBox>(kPlaced); }
    QString text(int box) const { return control<HexEdit>(box).text(); }

    // The mouse, at a display point of the view.
    QPoint inWindow(int x, int y) const
    {
        return view().mapTo(page.get(), QPoint(x + PictureView::kFrame, y + PictureView::kFrame));
    }
    void press(int x, int y, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(page->windowHandle(), button, {}, inWindow(x, y));
    }
    void move(int x, int y) const { QTest::mouseMove(page->windowHandle(), inWindow(x, y)); }
    void tick(int times) const
    {
        for (int i = 0; i < times; ++i)
            page->tick();
    }
    QPoint scroll() const
    {
        return {control<QScrollBar>(kHorizontalBar).value(),
                control<QScrollBar>(kVerticalBar).value()};
    }
    // Scrolls through the bars.
    void scrollTo(int x, int y) const
    {
        const auto drag = [](QScrollBar& bar, int position) {
            bar.setSliderPosition(position);
            bar.triggerAction(QAbstractSlider::SliderMove);
        };
        drag(control<QScrollBar>(kHorizontalBar), x);
        drag(control<QScrollBar>(kVerticalBar), y);
    }

    void click(int button) const
    {
        QTest::mouseClick(&control<QAbstractButton>(button), Qt::LeftButton, {},
                          control(button).rect().center()
                              - QPoint(control(button).width() / 2 - 8, 0));
    }
    static QStringList lines(const QListView& list)
    {
        QStringList texts;
        for (int i = 0; i < list.model()->rowCount(); ++i)
            texts.append(list.model()->index(i, 0).data().toString());
        return texts;
    }
    static int chosen(const QListView& list)
    {
        const QModelIndexList indexes = list.selectionModel()->selectedIndexes();
        return indexes.isEmpty() ? -1 : indexes.front().row();
    }
    static QPoint lineCentre(QListView& list, int line)
    {
        const QModelIndex index = list.model()->index(line, 0);
        list.scrollTo(index);
        return list.visualRect(index).center();
    }
    static void choose(QListView& list, int line)
    {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, lineCentre(list, line));
    }
    void doubleClickUnit(int line) const
    {
        const QPoint centre = lineCentre(units(), line);
        QTest::mouseClick(units().viewport(), Qt::LeftButton, {}, centre);
        QTest::mouseDClick(units().viewport(), Qt::LeftButton, {}, centre);
        QTest::mouseRelease(units().viewport(), Qt::LeftButton, {}, centre);
    }
    // By typing the entry's name.
    static void pick(QComboBox& combo, int index)
    {
        combo.setFocus();
        QTest::keyClicks(&combo, combo.itemText(index));
        EXPECT_EQ(combo.currentIndex(), index);
    }
    void typeInto(int id, const char* keys) const { test::typeInto(control<HexEdit>(id), keys); }
    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
    }
    Pixel at(std::uint32_t x, std::uint32_t y) const { return view().picture().at(x, y); }
    void expectStats(int row, int typeIndex, bool isPlaced, const QStringList& numbers) const
    {
        EXPECT_EQ(chosen(units()), row);
        EXPECT_EQ(type().currentIndex(), typeIndex);
        EXPECT_EQ(placed().isChecked(), isPlaced);
        EXPECT_EQ((QStringList{text(kScreenX), text(kScreenY), text(kPixelX), text(kPixelY)}),
                  numbers);
        for (const int box : {kScreenX, kScreenY, kPixelX, kPixelY})
            EXPECT_EQ(control(box).isEnabled(), isPlaced) << box;
    }

    const Bytes kUnits = {3, 100, 1, 50, 0, 10, 200, 1, 100, 0, 4, 7, 0, 8, 1};
    ScriptedPrompt prompt;
    std::unique_ptr<UnitPlacementPage> page;
};

} // namespace velko::test

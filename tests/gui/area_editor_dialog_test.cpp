#include "tools/area_editor_dialog.h"

#include "app/main_dialog.h"
#include "tests/gui/modal_helper.h"
#include "tests/gui/page_support.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace velko {
namespace {

using test::TestRom;

// File offsets in the spare end of the test ROM's first bank.
constexpr std::uint32_t kParachutes = 0x3F00;
constexpr std::uint32_t kEndItems = 0x3F20;

// The template's numbers of the controls.
enum Control { kArea = 1174, kAreaBar = 1173, kParachute = 1176, kClearItem = 1175, kClose = 1 };

// Five areas; number 4 (counted from 1) is the first neutral one, and 3 lies before it.
class AreaEditorDialogTest : public testing::Test {
protected:
    AreaEditorDialogTest()
    {
        game.config.setValue(MiscField::areas, 5);
        game.config.setValue(MiscField::firstNeutralArea, 3);
        game.config.setValue(MiscField::ptrAreaParachute, kParachutes);
        game.config.setValue(MiscField::ptrAreaEndItem, kEndItems);
        game.write(kParachutes, {1, 0, 1, 0, 1});
        game.write(kEndItems, {7, 25, 3, 4, 5});
        game.loadInto(state);
        for (std::size_t i = 0; i < state.names.items.size(); ++i)
            state.names.items[i] = "Item " + std::to_string(i);
        state.names.items[13].clear();
    }

    AreaEditorDialog& open()
    {
        dialog = std::make_unique<AreaEditorDialog>(state);
        test::showActive(*dialog);
        return *dialog;
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return test::controlOf<Widget>(*dialog, id);
    }
    QScrollBar& bar() const { return control<QScrollBar>(kAreaBar); }
    QComboBox& items() const { return control<QComboBox>(kClearItem); }
    QString areaText() const { return control<QLineEdit>(kArea).text(); }
    bool parachute() const { return control<QCheckBox>(kParachute).isChecked(); }

    void clickParachute() const { test::clickMark(control<QCheckBox>(kParachute)); }
    void chooseItem(int item) const
    {
        items().showPopup();
        QTest::keyClick(items().view(), Qt::Key_Home);
        for (int i = 0; i < item; ++i)
            QTest::keyClick(items().view(), Qt::Key_Down);
        QTest::keyClick(items().view(), Qt::Key_Return);
    }
    void stepBar(QAbstractSlider::SliderAction action, int times = 1) const
    {
        for (int i = 0; i < times; ++i)
            bar().triggerAction(action);
    }
    int byteAt(std::uint32_t offset) const { return state.rom.readByte(offset); }
    test::Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }

    TestRom game;
    EditorState state;
    std::unique_ptr<AreaEditorDialog> dialog;
};

TEST_F(AreaEditorDialogTest, TextsAreToTheLetter)
{
    open();
    EXPECT_EQ(dialog->windowTitle(), " Area Editor");
    const auto plain = [](QString text) { return text.remove('&'); };
    EXPECT_EQ(plain(dialog->findChild<QLabel*>("areaLabel")->text()), "Area:");
    EXPECT_EQ(plain(dialog->findChild<QLabel*>("clearItemLabel")->text()), "Area Clear Item:");
    EXPECT_EQ(plain(control<QCheckBox>(kParachute).text()),
              "Enter Area with parachute (if unchecked, hero starts at Entrance 1).");
    EXPECT_EQ(plain(control<QPushButton>(kClose).text()), "Close");
    EXPECT_EQ(dialog->property(kControlId).toInt(), 107);
}

TEST_F(AreaEditorDialogTest, OpensOnTheFirstArea)
{
    open();
    EXPECT_EQ(areaText(), "1");
    EXPECT_TRUE(control<QLineEdit>(kArea).isReadOnly());
    EXPECT_TRUE(parachute());
    EXPECT_TRUE(items().isEnabled());
    EXPECT_EQ(items().currentText(), "Item 7");
    EXPECT_EQ(bar().minimum(), 0);
    EXPECT_EQ(bar().maximum(), 4);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(AreaEditorDialogTest, AllItemsAreOfferedEvenOnesWithoutAName)
{
    open();
    EXPECT_EQ(items().count(), 26);
    EXPECT_EQ(items().itemText(0), "Item 0");
    EXPECT_EQ(items().itemText(13), "");
    EXPECT_EQ(items().itemText(25), "Item 25");
}

TEST_F(AreaEditorDialogTest, BarGoesThroughTheAreas)
{
    open();
    struct Row {
        const char* area;
        bool parachute;
        bool hasItem;
        const char* item;
    };
    for (const Row& row : {Row{"2", false, true, "Item 25"}, Row{"3", true, false, "Item 25"},
                           Row{"4", false, false, "Item 25"}, Row{"5", true, false, "Item 25"},
                           Row{"5", true, false, "Item 25"}}) {
        stepBar(QAbstractSlider::SliderSingleStepAdd);
        EXPECT_EQ(areaText(), row.area);
        EXPECT_EQ(parachute(), row.parachute) << "area " << row.area;
        EXPECT_EQ(items().isEnabled(), row.hasItem) << "area " << row.area;
        EXPECT_EQ(items().currentText(), row.item) << "area " << row.area;
    }
}

TEST_F(AreaEditorDialogTest, EndsOfTheBarsMenuMoveNothing)
{
    open();
    stepBar(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(areaText(), "1");
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(AreaEditorDialogTest, AreaFollowsTheThumb)
{
    open();
    bar().setSliderDown(true);
    bar().setSliderPosition(3);
    EXPECT_EQ(areaText(), "4");
    bar().setSliderDown(false);
    EXPECT_EQ(areaText(), "4");
}

TEST_F(AreaEditorDialogTest, KeysOnTheNumberAndTheWheelGoThroughTheAreas)
{
    open();
    auto& number = control<QLineEdit>(kArea);
    number.setFocus();
    QTest::keyClick(&number, Qt::Key_Right);
    QTest::keyClick(&number, Qt::Key_Down);
    EXPECT_EQ(areaText(), "3");
    QTest::keyClick(&number, Qt::Key_Up);
    EXPECT_EQ(areaText(), "2");
    QTest::keyClick(&number, Qt::Key_PageDown);
    EXPECT_EQ(areaText(), "3");
    const QPointF middle(dialog->rect().center());
    QWheelEvent wheel(middle, dialog->mapToGlobal(middle), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(dialog.get(), &wheel);
    EXPECT_EQ(areaText(), "2");
}

TEST_F(AreaEditorDialogTest, CheckBoxWritesTheAreasParachute)
{
    open();
    clickParachute();
    EXPECT_EQ(byteAt(kParachutes), 0);
    stepBar(QAbstractSlider::SliderSingleStepAdd, 3);
    QTest::keyClick(&control<QCheckBox>(kParachute), Qt::Key_Space);
    EXPECT_EQ(byteAt(kParachutes + 3), 1);
    EXPECT_EQ(byteAt(kParachutes + 1), 0);
    EXPECT_EQ(byteAt(kParachutes + 2), 1);
    EXPECT_EQ(byteAt(kParachutes + 4), 1);
    stepBar(QAbstractSlider::SliderSingleStepSub, 3);
    EXPECT_FALSE(parachute());
}

TEST_F(AreaEditorDialogTest, ChosenItemIsWritten)
{
    open();
    stepBar(QAbstractSlider::SliderSingleStepAdd);
    chooseItem(2);
    EXPECT_EQ(byteAt(kEndItems + 1), 2);
    EXPECT_EQ(byteAt(kEndItems), 7);
    EXPECT_EQ(byteAt(kEndItems + 2), 3);
}

TEST_F(AreaEditorDialogTest, ByteThatIsNoItemIsLeftUntilOneIsPicked)
{
    state.rom.writeByte(kEndItems + 1, 26);
    open();
    stepBar(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_TRUE(items().isEnabled());
    EXPECT_EQ(items().currentIndex(), 7) << "what the area before showed";
    EXPECT_EQ(byteAt(kEndItems + 1), 26);
    chooseItem(7);
    EXPECT_EQ(byteAt(kEndItems + 1), 7) << "picking what is shown is picking, too";
}

TEST_F(AreaEditorDialogTest, NothingIsShownWhereTheFirstAreaHasNoItem)
{
    state.rom.writeByte(kEndItems, 0xFF);
    open();
    EXPECT_EQ(items().currentIndex(), -1);
    EXPECT_EQ(byteAt(kEndItems), 0xFF);
}

TEST_F(AreaEditorDialogTest, LookingAtAllAreasChangesNothing)
{
    state.rom.writeByte(kParachutes + 1, 0x42);
    const test::Bytes before = image();
    open();
    stepBar(QAbstractSlider::SliderSingleStepAdd, 5);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(image(), before);
}

TEST_F(AreaEditorDialogTest, CloseEndsTheWindow)
{
    open();
    QTest::mouseClick(&control<QPushButton>(kClose), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(AreaEditorDialogTest, TabGoesFromTopToBottom)
{
    open();
    control(kArea).setFocus();
    for (const int id : {kParachute, kClearItem, kClose, kArea}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->property(kControlId).toInt(), id);
    }
}

TEST_F(AreaEditorDialogTest, AbsurdNumbersOfAreas)
{
    state.config.setValue(MiscField::areas, 0);
    open();
    EXPECT_EQ(areaText(), "1");
    stepBar(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(areaText(), "1");

    state.config.setValue(MiscField::areas, 0xFFFFFFFF);
    state.config.setValue(MiscField::firstNeutralArea, 0xFFFFFFFF);
    open();
    const test::Bytes before = image();
    bar().setSliderDown(true);
    bar().setSliderPosition(bar().maximum());
    EXPECT_EQ(areaText(), "65536");
    state.config.setValue(MiscField::ptrAreaEndItem, 0xFFFFFF00);
    chooseItem(3);
    EXPECT_EQ(image().size(), before.size());
}

TEST_F(AreaEditorDialogTest, MenuOpensIt)
{
    test::ScriptedPrompt prompt;
    MainDialog window(state, prompt);
    window.show();
    bool opened = false;
    test::onceModal<AreaEditorDialog>([&](AreaEditorDialog& editor) {
        opened = true;
        EXPECT_EQ(editor.parent(), &window);
        QTest::keyClick(editor.findChild<QCheckBox*>(), Qt::Key_Space);
        QTest::keyClick(&editor, Qt::Key_Escape);
    });
    auto* command = window.findChild<QAction*>("areaEditorAction");
    EXPECT_TRUE(command->isEnabled());
    command->trigger();
    EXPECT_TRUE(opened);
    EXPECT_EQ(byteAt(kParachutes), 0);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
} // namespace velko

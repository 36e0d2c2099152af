#include "pages/miscellaneous_page.h"

#include "app/hex_edit.h"
#include "app/main_dialog.h"
#include "app/room_combo.h"
#include "tests/gui/page_support.h"
#include "tests/pages/room_settings_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <memory>

namespace velko {
namespace {

using test::Bytes;

// A page on chamber 37, which holds item 7.
class MiscellaneousPageTest : public test::RoomSettingsTest {
protected:
    MiscellaneousPageTest()
    {
        state.graphics.selectRoom(kFirst);
        open();
    }
    void open()
    {
        page = std::make_unique<MiscellaneousPage>(state);
        test::showPage(*page, {900, 600});
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return test::controlOf<Widget>(*page, id);
    }
    QComboBox& music() const { return control<QComboBox>(1138); }
    QCheckBox& check() const { return control<QCheckBox>(1171); }
    QComboBox& item() const { return control<QComboBox>(1172); }
    HexEdit& address() const { return control<HexEdit>(1120); }
    QPushButton& addressButton() const { return control<QPushButton>(1177); }

    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
    }
    void clickCheck() const { test::clickMark(check()); }
    void type(const QString& text) const { test::typeInto(address(), text); }
    static void choose(QComboBox& combo, const QString& name)
    {
        combo.setFocus();
        QTest::keyClicks(&combo, name);
    }
    void expectItem(bool checked, bool enabled, int index, const char* addressText) const
    {
        EXPECT_EQ(check().isChecked(), checked);
        EXPECT_EQ(item().isEnabled(), enabled);
        EXPECT_EQ(item().currentIndex(), index);
        EXPECT_EQ(address().text(), addressText);
    }

    std::unique_ptr<MiscellaneousPage> page;
};

TEST_F(MiscellaneousPageTest, ControlsAreThereWithTheirTexts)
{
    EXPECT_EQ(page->property(kControlId).toInt(), 135);
    EXPECT_EQ(check().text(), "Room contains Item");
    EXPECT_EQ(addressButton().text(), "Set to Item's address");
    const struct {
        const char* label;
        const char* text;
        QWidget* buddy;
    } rows[] = {{"musicLabel", "Room's music:", &music()},
                {"itemLabel", "Item Id: ", &item()},
                {"addressLabel", "Sprite Address:", &address()}};
    for (const auto& row : rows) {
        const auto* label = page->findChild<QLabel*>(row.label);
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), row.text);
        EXPECT_EQ(label->buddy(), row.buddy);
        EXPECT_TRUE(label->isVisible());
    }
}

TEST_F(MiscellaneousPageTest, TitleIsTheTemplatesUntilTheRoomIsShown)
{
    state.config.setValue(MiscField::areaFirstNAchamber, 5);
    state.config.setValue(MiscField::areaLastNAchamber, 60);
    MiscellaneousPage fresh(state);
    const auto* box = fresh.findChild<QGroupBox*>("itemGroup");
    EXPECT_EQ(box->title(), " Neutral Area Item (only for rooms 37 to 44)");
    fresh.setup();
    EXPECT_EQ(box->title(), " Neutral Area Item (only for rooms 37 to 44)");
    fresh.refresh();
    EXPECT_EQ(box->title(), " Neutral Area Item (only for rooms 5 to 60)");
}

TEST_F(MiscellaneousPageTest, EventControlsAreNeverShown)
{
    const struct {
        const char* name;
        int id;
        const char* text;
    } rows[] = {
        {"deleteEventButton", 1031, "Delete Event Data"},
        {"eventPointerLabel", 0, "Room's Event Pointer:"},
        {"eventPointerEdit", 1121, ""},
        {"eventAddressLabel", 0, "(ROM address:)"},
        {"eventHintLabel", 0, "^ There is no interface for editing events at this time"},
    };
    const auto* box = page->findChild<QGroupBox*>("eventGroup");
    EXPECT_EQ(box->title(), " Event data ");
    for (const std::uint8_t room : {kFirst, std::uint8_t{45}}) {
        changeRoom(room);
        EXPECT_TRUE(box->isHidden());
        for (const auto& row : rows) {
            const auto* control = page->findChild<QWidget*>(row.name);
            ASSERT_NE(control, nullptr) << row.name;
            EXPECT_TRUE(control->isHidden()) << row.name;
            EXPECT_FALSE(control->isVisible()) << row.name;
            EXPECT_EQ(control->property(kControlId).toInt(), row.id) << row.name;
            EXPECT_EQ(control->property("text").toString(), row.text);
        }
    }
}

TEST_F(MiscellaneousPageTest, AllMusicAndItemNamesAreListed)
{
    ASSERT_EQ(music().count(), 256);
    EXPECT_EQ(music().itemText(0), "Tune 0");
    EXPECT_EQ(music().itemText(255), "Tune 255");
    ASSERT_EQ(item().count(), 26);
    EXPECT_EQ(item().itemText(25), "Item 25");
}

TEST_F(MiscellaneousPageTest, AbsentNamesAreEmpty)
{
    state.names.music[3].clear();
    state.names.items[4].clear();
    open();
    EXPECT_EQ(music().count(), 256);
    EXPECT_EQ(music().itemText(3), "");
    EXPECT_EQ(item().count(), 26);
    EXPECT_EQ(item().itemText(4), "");
}

TEST_F(MiscellaneousPageTest, LookingAtRoomsWritesNothing)
{
    for (int room = 0; room < 256; ++room)
        changeRoom(static_cast<std::uint8_t>(room));
    EXPECT_EQ(image(), game.bytes);
}

// The music

TEST_F(MiscellaneousPageTest, MusicOfTheRoomIsShown)
{
    EXPECT_EQ(music().currentText(), "Tune 137");
    changeRoom(0);
    EXPECT_EQ(music().currentText(), "Tune 100");
    EXPECT_TRUE(music().isEnabled());
}

TEST_F(MiscellaneousPageTest, ChosenMusicIsWritten)
{
    choose(music(), "tune 255");
    EXPECT_EQ(image(), loadedExcept(0x3825, {255}));
    QTest::keyClick(&music(), Qt::Key_Up);
    EXPECT_EQ(image(), loadedExcept(0x3825, {254}));
    changeRoom(1);
    QTest::keyClick(&music(), Qt::Key_Home);
    EXPECT_EQ(byteAt(0x3801), 0);
    EXPECT_EQ(byteAt(0x3825), 254);
}

TEST_F(MiscellaneousPageTest, MusicThatCannotBeStoredIsNotShownAsChosen)
{
    state.config.setValue(MiscField::ptrRoomMusic, 0x7FFFFFFF);
    page->refresh();
    EXPECT_EQ(music().currentIndex(), 0x55);
    QTest::keyClick(&music(), Qt::Key_Down);
    EXPECT_EQ(music().currentIndex(), 0x55);
    EXPECT_EQ(image(), game.bytes);
}

// The item

TEST_F(MiscellaneousPageTest, ChamberShowsItsItem)
{
    expectItem(true, true, 7, "b0c1");
    EXPECT_TRUE(check().isEnabled());
    EXPECT_TRUE(addressButton().isEnabled());
    EXPECT_TRUE(address().isEnabled());
    changeRoom(kLast);
    expectItem(true, true, 25, "1234");
    EXPECT_EQ(item().currentText(), "Item 25");
}

TEST_F(MiscellaneousPageTest, EmptyChamberCanGetAnItem)
{
    changeRoom(kEmpty);
    expectItem(false, false, -1, "ffff");
    EXPECT_EQ(item().currentText(), "");
    EXPECT_TRUE(check().isEnabled());
    EXPECT_TRUE(addressButton().isEnabled());
    EXPECT_TRUE(address().isEnabled());
}

TEST_F(MiscellaneousPageTest, OtherRoomsHaveTheItemControlsOff)
{
    for (const std::uint8_t room : {std::uint8_t{36}, std::uint8_t{45}}) {
        changeRoom(kFirst);
        changeRoom(room);
        EXPECT_FALSE(item().isEnabled());
        EXPECT_EQ(item().currentText(), "");
        EXPECT_EQ(address().text(), "");
        EXPECT_FALSE(address().isEnabled());
        EXPECT_FALSE(check().isEnabled());
        EXPECT_FALSE(addressButton().isEnabled());
        clickCheck();
        QTest::mouseClick(&addressButton(), Qt::LeftButton);
        QTest::keyClicks(&address(), "8000");
        EXPECT_EQ(image(), game.bytes);
    }
}

TEST_F(MiscellaneousPageTest, UncheckingTakesTheItemAway)
{
    clickCheck();
    expectItem(false, false, -1, "ffff");
    Bytes expected = loadedExcept(0x3900, {0xFF});
    expected[0x3A00] = expected[0x3A01] = 0xFF;
    EXPECT_EQ(image(), expected);
}

TEST_F(MiscellaneousPageTest, CheckingStartsFromItemFour)
{
    clickCheck();
    clickCheck();
    expectItem(true, true, 4, "ab06");
    Bytes expected = loadedExcept(0x3900, {4});
    expected[0x3A00] = 0x06;
    expected[0x3A01] = 0xAB;
    EXPECT_EQ(image(), expected);
}

TEST_F(MiscellaneousPageTest, ChosenItemLeavesTheAddress)
{
    choose(item(), "item 25");
    expectItem(true, true, 25, "b0c1");
    EXPECT_EQ(image(), loadedExcept(0x3900, {25}));
    QTest::mouseClick(&addressButton(), Qt::LeftButton);
    expectItem(true, true, 25, "9019");
    EXPECT_EQ(byteAt(0x3A00), 0x19);
    EXPECT_EQ(byteAt(0x3A01), 0x90);
}

TEST_F(MiscellaneousPageTest, AddressOfAnEmptyChamberIsSetToFfff)
{
    changeRoom(kEmpty);
    type("8000");
    EXPECT_EQ(byteAt(0x3A06), 0x00);
    EXPECT_EQ(byteAt(0x3A07), 0x80);
    QTest::mouseClick(&addressButton(), Qt::LeftButton);
    EXPECT_EQ(address().text(), "ffff");
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MiscellaneousPageTest, ItemPastTheListLeavesThePreviousOneOnScreen)
{
    changeRoom(kUnlisted);
    expectItem(true, true, 7, "5678");
    changeRoom(kEmpty);
    changeRoom(kUnlisted);
    expectItem(true, true, -1, "5678");
    QTest::mouseClick(&addressButton(), Qt::LeftButton);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MiscellaneousPageTest, PreviousItemOnScreenCanBeChosenForGood)
{
    changeRoom(kUnlisted);
    ASSERT_EQ(item().currentIndex(), 7);
    choose(item(), "item 8");
    QTest::keyClick(&item(), Qt::Key_Up);
    EXPECT_EQ(image(), loadedExcept(0x3904, {7}));
}

TEST_F(MiscellaneousPageTest, CheckStaysAsItWasInOtherRooms)
{
    changeRoom(45);
    EXPECT_TRUE(check().isChecked());
    changeRoom(kEmpty);
    changeRoom(45);
    EXPECT_FALSE(check().isChecked());
}

// The address

TEST_F(MiscellaneousPageTest, EachTypedDigitIsWritten)
{
    type("9");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0x09, 0x00}));
    QTest::keyClicks(&address(), "1F2");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0xF2, 0x91}));
    EXPECT_EQ(address().text(), "91F2");
    expectItem(true, true, 7, "91F2");
}

TEST_F(MiscellaneousPageTest, AddressTypedTooLongIsShownAsStoredAtOnce)
{
    type("12345");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0x45, 0x23}));
    EXPECT_EQ(address().text(), "2345");
    QTest::keyClicks(&address(), "6");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0x56, 0x34}));
    EXPECT_EQ(address().text(), "3456");
}

TEST_F(MiscellaneousPageTest, AddressThatCannotBeStoredIsNotShown)
{
    state.config.setValue(MiscField::ptrNA_ChItemAddress, 0x7FFFFFFF);
    page->refresh();
    type("1");
    EXPECT_EQ(address().text(), "5555");
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MiscellaneousPageTest, FinishedAddressIsShownAsStored)
{
    type("0x123FADE");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0xDE, 0xFA}));
    QTest::keyClick(&address(), Qt::Key_Return);
    EXPECT_EQ(address().text(), "fade");
}

TEST_F(MiscellaneousPageTest, TextWithoutDigitsIsZero)
{
    type("zz");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0, 0}));
    address().selectAll();
    QTest::keyClick(&address(), Qt::Key_Delete);
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0, 0}));
    music().setFocus();
    EXPECT_EQ(address().text(), "0");
}

TEST_F(MiscellaneousPageTest, ShownAddressIsNotWritten)
{
    state.config.setValue(MiscField::ptrNA_ChItemAddress, kAddress);
    state.rom.writeByte(kAddress, 0x12);
    const Bytes before = image();
    page->refresh();
    EXPECT_EQ(address().text(), "b012");
    EXPECT_EQ(image(), before);
}

TEST_F(MiscellaneousPageTest, RoomMayChangeWhileAnAddressIsTyped)
{
    type("12");
    changeRoom(0);
    EXPECT_EQ(address().text(), "");
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0x12, 0x00}));
}

TEST_F(MiscellaneousPageTest, PageMayGoWhileAnAddressIsTyped)
{
    type("123");
    page.reset();
    EXPECT_EQ(image(), loadedExcept(0x3A00, {0x23, 0x01}));
}

// The window

TEST_F(MiscellaneousPageTest, TabGoesThroughTheControlsInTheirOrder)
{
    music().setFocus();
    for (const char* name :
         {"itemCheck", "itemCombo", "addressEdit", "addressButton", "musicCombo"}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->objectName(), name);
    }
}

TEST_F(MiscellaneousPageTest, EveryControlTellsWhatItIsFor)
{
    for (const int id : {1138, 1171, 1172, 1120, 1177})
        EXPECT_FALSE(control(id).toolTip().isEmpty()) << id;
}

TEST_F(MiscellaneousPageTest, LabelsLineUpWithTheirControls)
{
    const auto centre = [this](const QWidget& widget) {
        return widget.mapTo(page.get(), widget.rect().center()).y();
    };
    const auto left = [this](const QWidget& widget) {
        return widget.mapTo(page.get(), QPoint()).x();
    };
    const auto& label = *page->findChild<QLabel*>("addressLabel");
    EXPECT_NEAR(centre(label), centre(address()), 1);
    EXPECT_NEAR(centre(addressButton()), centre(address()), 1);
    EXPECT_EQ(left(address()), left(item()));
}

TEST_F(MiscellaneousPageTest, PageWithoutARomShowsFiller)
{
    EditorState empty;
    MiscellaneousPage other(empty);
    other.setup();
    other.refresh();
    EXPECT_EQ(other.findChild<QComboBox*>("musicCombo")->currentIndex(), 0x55);
    EXPECT_EQ(other.findChild<HexEdit*>("addressEdit")->text(), "5555");
}

TEST_F(MiscellaneousPageTest, TabOfTheMainWindowEditsTheChosenRoom)
{
    page.reset();
    test::ScriptedPrompt prompt;
    MainDialog window(state, prompt);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.findChild<QTabBar*>()->setCurrentIndex(7);
    window.chooseRoom(kLast);
    auto* combo = window.findChild<QComboBox*>("itemCombo");
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->currentIndex(), 25);
    QTest::keyClick(combo, Qt::Key_Up);
    EXPECT_EQ(image(), loadedExcept(0x3907, {24}));
}

} // namespace
} // namespace velko

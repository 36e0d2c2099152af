#include "tests/gui/main_dialog_fixture.h"

#include <QAbstractItemView>

namespace velko {
namespace {

using test::Calls;
using test::MainDialogTest;

TEST_F(MainDialogTest, RoomIsChosenByKeyboardInTheCombo)
{
    openQuietly();
    QTest::keyClick(&combo(), Qt::Key_Down);
    EXPECT_EQ(calls, (Calls{"0 commit room 0", "0 refresh room 1"}));
    EXPECT_EQ(state.currentRoom(), 1);
    EXPECT_EQ(state.store.pahPal.currentRoom(), 1U);
    EXPECT_EQ(spin().position(), 1);
}

TEST_F(MainDialogTest, RoomIsFoundByTypingItsName)
{
    openQuietly();
    QTest::keyClicks(&combo(), "Room D");
    EXPECT_EQ(state.currentRoom(), 3);
    EXPECT_EQ(spin().position(), 3);
}

TEST_F(MainDialogTest, BlankByItselfOpensTheListOfRooms)
{
    open();
    QTest::keyClick(&combo(), Qt::Key_Space);
    EXPECT_TRUE(combo().view()->isVisible());
    combo().hidePopup();
    EXPECT_EQ(state.currentRoom(), 0);
}

TEST_F(MainDialogTest, RoomIsChosenByMouseInTheOpenedList)
{
    openQuietly();
    QTest::mouseClick(&combo(), Qt::LeftButton);
    ASSERT_TRUE(combo().view()->isVisible());
    // The list takes a second click that follows at once for a part of the first.
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    const QRect item = combo().view()->visualRect(combo().model()->index(3, 0));
    QTest::mouseMove(combo().view()->viewport(), item.center());
    QTest::mouseClick(combo().view()->viewport(), Qt::LeftButton, {}, item.center());
    EXPECT_EQ(calls, (Calls{"0 commit room 0", "0 refresh room 3"}));
    EXPECT_EQ(state.currentRoom(), 3);
    EXPECT_EQ(spin().position(), 3);
    EXPECT_FALSE(combo().view()->isVisible());
}

TEST_F(MainDialogTest, LongListOfRoomsDropsDownAndScrolls)
{
    open();
    for (int i = 0; i < 100; ++i)
        combo().addItem("Another");
    combo().showPopup();
    EXPECT_LE(combo().view()->height(), 25 * combo().view()->sizeHintForRow(0));
    EXPECT_GE(combo().view()->mapToGlobal(QPoint(0, 0)).y(), combo().mapToGlobal(QPoint(0, 0)).y());
    combo().hidePopup();
}

TEST_F(MainDialogTest, OldPageStaysInSightWhileItAsks)
{
    class AskingPage : public Page {
    public:
        AskingPage(QWidget* parent, Calls& seen) : Page(parent), m_seen(seen) { }
        void refresh() override { }
        void leave(bool) override { m_seen.push_back(isVisible() ? "in sight" : "hidden"); }

    private:
        Calls& m_seen;
    };
    open();
    Calls seen;
    windows.pages[0].make = [&seen](const WindowContext&, QWidget* parent) {
        return new AskingPage(parent, seen);
    };
    dialog = std::make_unique<MainDialog>(state, prompt, windows);
    dialog->show();
    clickTab(1);
    EXPECT_EQ(seen, Calls{"in sight"});
    EXPECT_EQ(dialog->currentPageIndex(), 1);
}

TEST_F(MainDialogTest, ChoosingTheSameRoomInTheComboIsNoChange)
{
    openQuietly();
    emit combo().activated(0);
    EXPECT_EQ(calls, Calls{});
}

TEST_F(MainDialogTest, SpinChangesTheRoomWhenTheArrowIsLetGo)
{
    openQuietly();
    QTest::mousePress(&spin(), Qt::LeftButton, {}, upperArrow());
    EXPECT_EQ(spin().position(), 1);
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(combo().currentIndex(), 0);
    QTest::mouseRelease(&spin(), Qt::LeftButton, {}, upperArrow());
    EXPECT_EQ(calls, (Calls{"0 commit room 0", "0 refresh room 1"}));
    EXPECT_EQ(combo().currentIndex(), 1);
    EXPECT_EQ(state.currentRoom(), 1);
}

TEST_F(MainDialogTest, HeldSpinPassesOverTheRoomsBetween)
{
    openQuietly();
    QTest::mousePress(&spin(), Qt::LeftButton, {}, upperArrow());
    EXPECT_TRUE(QTest::qWaitFor([this] { return spin().position() == 4; }));
    EXPECT_EQ(calls, Calls{});
    QTest::mouseRelease(&spin(), Qt::LeftButton, {}, upperArrow());
    EXPECT_EQ(calls, (Calls{"0 commit room 0", "0 refresh room 4"}));
}

TEST_F(MainDialogTest, SpinWorksByKeyboard)
{
    openQuietly();
    QTest::keyClick(&spin(), Qt::Key_Up);
    QTest::keyClick(&spin(), Qt::Key_Up);
    QTest::keyClick(&spin(), Qt::Key_Down);
    EXPECT_EQ(state.currentRoom(), 1);
    EXPECT_EQ(combo().currentIndex(), 1);
}

TEST_F(MainDialogTest, RoomNumbersAreCutToEightBits)
{
    openQuietly();
    dialog->changeRoom(0x102);
    EXPECT_EQ(state.currentRoom(), 2);
}

TEST_F(MainDialogTest, CommitMayAskWhileTheOldRoomIsStillCurrent)
{
    openQuietly();
    std::uint8_t roomAtCommit = 99;
    page().onCommit = [&] { roomAtCommit = state.currentRoom(); };
    combo().setFocus();
    QTest::keyClick(&combo(), Qt::Key_End);
    EXPECT_EQ(roomAtCommit, 0);
    EXPECT_EQ(state.currentRoom(), 4);
}

class OneRoomTest : public MainDialogTest {
protected:
    OneRoomTest() : MainDialogTest(1) { }
};

TEST_F(OneRoomTest, SpinAndComboHoldOneRoom)
{
    openQuietly();
    EXPECT_EQ(spin().minimum(), 0);
    EXPECT_EQ(spin().maximum(), 0);
    EXPECT_EQ(combo().count(), 1);
    QTest::mouseClick(&spin(), Qt::LeftButton, {}, upperArrow());
    EXPECT_EQ(state.currentRoom(), 0);
    EXPECT_EQ(calls, (Calls{"0 commit room 0", "0 refresh room 0"}));
}

class NoRoomTest : public MainDialogTest {
protected:
    NoRoomTest() : MainDialogTest(0) { }
};

TEST_F(NoRoomTest, WindowSurvivesAGameWithoutRooms)
{
    openQuietly();
    EXPECT_EQ(combo().count(), 0);
    QTest::mouseClick(&spin(), Qt::LeftButton, {}, upperArrow());
    QTest::keyClick(&combo(), Qt::Key_Down);
    clickTab(8);
    EXPECT_EQ(spin().position(), 0);
    EXPECT_EQ(state.currentRoom(), 0);
}

TEST(MainDialogUnconfigured, EveryTabSurvivesAnEmptyState)
{
    EditorState state; // no configuration, no ROM
    test::ScriptedPrompt prompt;
    MainDialog dialog(state, prompt);
    dialog.show();
    auto* tabs = dialog.findChild<QTabWidget*>("pageTabs");
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        EXPECT_EQ(dialog.currentPageIndex(), i);
        EXPECT_FALSE(dialog.grab().isNull());
    }
}

class ManyRoomsTest : public MainDialogTest {
protected:
    ManyRoomsTest() { state.config.setValue(MiscField::rooms, 0xFFFFFFFF); }
};

TEST_F(ManyRoomsTest, NoMoreThan256RoomsAreShown)
{
    openQuietly();
    EXPECT_EQ(combo().count(), 256);
    EXPECT_EQ(spin().maximum(), 255);
    EXPECT_EQ(combo().itemText(5), ""); // the list of names is shorter
    combo().setFocus();
    QTest::keyClick(&combo(), Qt::Key_End);
    EXPECT_EQ(state.currentRoom(), 255);
}

} // namespace
} // namespace velko

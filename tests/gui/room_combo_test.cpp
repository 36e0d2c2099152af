#include "app/room_combo.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <array>
#include <gtest/gtest.h>
#include <string>

namespace velko {
namespace {

class RoomComboTest : public testing::Test {
protected:
    RoomComboTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&other);
        layout->addWidget(&combo);
        combo.setNames(names);
        combo.setCurrentIndex(1);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        other.setFocus();
    }
    ~RoomComboTest() override
    {
        combo.setParent(nullptr);
        other.setParent(nullptr);
    }

    bool turnWheel()
    {
        QWheelEvent wheel({5, 5}, combo.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&combo, &wheel);
        return wheel.isAccepted();
    }

    const std::array<std::string, 4> names = {"Cave 1", "Cave 2", "", "Caf\xE9"};
    QWidget window;
    QLineEdit other;
    RoomCombo combo;
};

TEST_F(RoomComboTest, NamesAreListedAndNoneIsChosen)
{
    combo.setNames(names);
    EXPECT_EQ(combo.currentIndex(), -1);
    ASSERT_EQ(combo.count(), 4);
    EXPECT_EQ(combo.itemText(0), "Cave 1");
    EXPECT_EQ(combo.itemText(2), "");
    EXPECT_EQ(combo.itemText(3), QString::fromUtf8("Caf\xC3\xA9"));
    combo.setNames({});
    EXPECT_EQ(combo.count(), 0);
}

TEST_F(RoomComboTest, RoomWithoutANameIsListedAll)
{
    EditorState state;
    state.config.setValue(MiscField::rooms, 3);
    state.names.rooms = {"Hall"};
    combo.setRooms(state);
    ASSERT_EQ(combo.count(), 3);
    EXPECT_EQ(combo.itemText(0), "Hall");
    EXPECT_EQ(combo.itemText(2), "");
}

TEST_F(RoomComboTest, WheelThatScrollsThePageChoosesNothing)
{
    EXPECT_FALSE(turnWheel());
    EXPECT_EQ(combo.currentIndex(), 1);
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(RoomComboTest, WheelChoosesInTheBoxThatHasTheFocus)
{
    combo.setFocus();
    EXPECT_TRUE(turnWheel());
    EXPECT_EQ(combo.currentIndex(), 2);
}

TEST_F(RoomComboTest, BlankBelongsToANameThatIsBeingTyped)
{
    combo.setFocus();
    combo.setCurrentIndex(3);
    QTest::keyClicks(&combo, "cave 2");
    EXPECT_EQ(combo.currentIndex(), 1);
}

TEST_F(RoomComboTest, LettersOfCommandsChooseNothing)
{
    combo.setFocus();
    combo.setCurrentIndex(3);
    for (const Qt::KeyboardModifier held :
         {Qt::AltModifier, Qt::ControlModifier, Qt::MetaModifier}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_C, held, "c");
        QApplication::sendEvent(&combo, &press);
        EXPECT_FALSE(press.isAccepted());
        EXPECT_EQ(combo.currentIndex(), 3);
    }
    // As AltGr is told on some systems.
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier | Qt::AltModifier, "c");
    QApplication::sendEvent(&combo, &typed);
    EXPECT_EQ(combo.currentIndex(), 0);
}

} // namespace
} // namespace velko

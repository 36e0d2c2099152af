#include "app/message_boxes.h"

#include "app/busy_cursor.h"
#include "tests/gui/modal_helper.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace velko {
namespace {

using test::onceModal;

// Answers the next box with a button.
void answer(QMessageBox::StandardButton button)
{
    onceModal<QMessageBox>(
        [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
}

class MessageBoxesTest : public testing::Test {
protected:
    MessageBoxes boxes;
    UserPrompt& prompt = boxes;
};

TEST_F(MessageBoxesTest, MessageShowsItsTextAndIcon)
{
    const struct {
        MessageIcon icon;
        QMessageBox::Icon shown;
    } rows[] = {{MessageIcon::kNone, QMessageBox::NoIcon},
                {MessageIcon::kExclamation, QMessageBox::Warning},
                {MessageIcon::kError, QMessageBox::Critical},
                {MessageIcon::kQuestion, QMessageBox::Question}};
    for (const auto& row : rows) {
        onceModal<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.icon(), row.shown);
            EXPECT_EQ(box.text(), "Something <b>happened</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
            box.accept();
        });
        prompt.showMessage("Something <b>happened</b>", row.icon);
    }
}

TEST_F(MessageBoxesTest, ErrorHasNoCaptionOfItsOwn)
{
    onceModal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.windowTitle(), "");
        box.accept();
    });
    prompt.showError("Oh");
}

TEST_F(MessageBoxesTest, OkCancelAnswersZeroAndOne)
{
    answer(QMessageBox::Ok);
    EXPECT_EQ(prompt.askOkCancel("Go on?"), 0);
    answer(QMessageBox::Cancel);
    EXPECT_EQ(prompt.askOkCancel("Go on?"), 1);
    onceModal<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(prompt.askOkCancel("Go on?"), 1);
}

TEST_F(MessageBoxesTest, OkCancelHasAnExclamationMarkAndACaption)
{
    for (const char* caption : {"Error", "Rooms"}) {
        onceModal<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.icon(), QMessageBox::Warning);
            EXPECT_EQ(box.windowTitle(), caption);
            box.reject();
        });
        if (std::string_view(caption) == "Error")
            prompt.askOkCancel("Go on?");
        else
            prompt.askOkCancel("Go on?", caption);
    }
}

TEST_F(MessageBoxesTest, CaptionIsShownToTheLetter)
{
    onceModal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowHandle()->title(), "a[*]b");
        box.accept();
    });
    prompt.askOkCancel("Go on?", "a[*]b");
}

TEST_F(MessageBoxesTest, SuppressedOkCancelShowsNothing)
{
    EXPECT_EQ(prompt.askOkCancel("Go on?", "Error", true), -1);
}

TEST_F(MessageBoxesTest, YesAndNoAnswer)
{
    answer(QMessageBox::Yes);
    EXPECT_TRUE(prompt.askYesNo("Write?"));
    answer(QMessageBox::No);
    EXPECT_FALSE(prompt.askYesNo("Write?"));
}

TEST_F(MessageBoxesTest, NeitherEscapeNorClosingAnswersYesOrNo)
{
    onceModal<QMessageBox>([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        EXPECT_FALSE(box.close());
        EXPECT_TRUE(box.isVisible());
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    EXPECT_TRUE(prompt.askYesNo("Write?"));
}

TEST_F(MessageBoxesTest, YesNoCancelKnowsThreeAnswers)
{
    answer(QMessageBox::Yes);
    EXPECT_EQ(prompt.askYesNoCancel("Fix?"), YesNoCancel::kYes);
    answer(QMessageBox::No);
    EXPECT_EQ(prompt.askYesNoCancel("Fix?"), YesNoCancel::kNo);
    answer(QMessageBox::Cancel);
    EXPECT_EQ(prompt.askYesNoCancel("Fix?"), YesNoCancel::kCancel);
    onceModal<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(prompt.askYesNoCancel("Fix?"), YesNoCancel::kCancel);
}

TEST_F(MessageBoxesTest, BusyCursorGivesWayToTheBox)
{
    const BusyCursor busy;
    onceModal<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        box.accept();
    });
    prompt.showMessage("Oh");
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

} // namespace
} // namespace velko

#include "app/hex_edit.h"

#include <QTest>
#include <gtest/gtest.h>
#include <vector>

namespace velko {
namespace {

class HexEditTest : public testing::Test {
protected:
    HexEditTest()
    {
        QObject::connect(&edit, &QLineEdit::textChanged, &edit,
                         [this] { setting.push_back(edit.settingText()); });
    }

    HexEdit edit;
    std::vector<bool> setting; // settingText() at each notification
};

TEST_F(HexEditTest, GetHexReadsDigitsAndSkipsTheRest)
{
    const struct {
        const char* text;
        std::uint32_t value;
    } rows[] = {{"1F", 31}, {"0x1F", 31}, {"", 0}, {"zz", 0}, {"aBc", 0xABC}, {" 1 0 ", 0x10}};
    for (const auto& row : rows) {
        edit.setText(row.text);
        EXPECT_EQ(edit.getHex(), row.value) << row.text;
    }
}

TEST_F(HexEditTest, SetHexShowsLowerCaseWithoutPadding)
{
    edit.setHex(0);
    EXPECT_EQ(edit.text(), "0");
    edit.setHex(4096);
    EXPECT_EQ(edit.text(), "1000");
    edit.setHex(0xFFFFFFFF);
    EXPECT_EQ(edit.text(), "ffffffff");
}

TEST_F(HexEditTest, SettingTextTellsTheProgramsChangesFromTheUsers)
{
    edit.setHex(0x12);
    edit.end(false);
    QTest::keyClicks(&edit, "3");
    EXPECT_EQ(setting, (std::vector{true, false}));
    EXPECT_FALSE(edit.settingText());
    EXPECT_EQ(edit.getHex(), 0x123U);
}

TEST_F(HexEditTest, NoTextMeansEmpty)
{
    edit.setHex(0x12);
    edit.setText();
    EXPECT_EQ(edit.text(), "");
}

TEST_F(HexEditTest, SelectionSurvivesANewText)
{
    edit.setText("abcd");
    edit.setSelection(1, 2);
    edit.setText("1234");
    EXPECT_EQ(edit.selectedText(), "23");
    EXPECT_EQ(edit.cursorPosition(), 3);
}

TEST_F(HexEditTest, BackwardSelectionKeepsItsCaretAtTheFront)
{
    edit.setText("abcd");
    edit.setSelection(3, -2);
    edit.setText("1234");
    EXPECT_EQ(edit.selectedText(), "23");
    EXPECT_EQ(edit.cursorPosition(), 1);
}

TEST_F(HexEditTest, SelectionIsCutToAShorterText)
{
    edit.setText("abcd");
    edit.setSelection(1, 3);
    edit.setText("12");
    EXPECT_EQ(edit.selectedText(), "2");
    edit.selectAll();
    edit.setText("");
    EXPECT_FALSE(edit.hasSelectedText());
}

TEST_F(HexEditTest, CaretStaysWhereItWas)
{
    edit.setText("abcd");
    edit.setCursorPosition(2);
    edit.setText("1234");
    EXPECT_EQ(edit.cursorPosition(), 2);
    edit.setText("1");
    EXPECT_EQ(edit.cursorPosition(), 1);
}

TEST_F(HexEditTest, GetTextIsTheFirstLineCutToTheLengthAskedFor)
{
    edit.setText("1234");
    EXPECT_EQ(edit.getText(2), "12");
    EXPECT_EQ(edit.getText(0), "");
    EXPECT_EQ(edit.getText(-1), "");
    edit.setText(QString(300, 'a'));
    EXPECT_EQ(edit.getText().length(), 256);
    edit.setText("12\n34");
    EXPECT_EQ(edit.getText(), "12");
    edit.setText("12\r\n34");
    EXPECT_EQ(edit.getHex(), 0x12U);
}

} // namespace
} // namespace velko

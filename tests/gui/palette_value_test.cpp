#include "tests/gui/palette_page_fixture.h"

#include <QPushButton>

namespace velko::test::palette_page {
namespace {

// The edit box

TEST_F(PalettePageTest, TypedTextIsReadAsHexadecimalAndItsLowByteWritten)
{
    const struct {
        const char* text;
        std::uint8_t value;
    } rows[] = {{"1F", 0x1F},  {"0x1F", 0x1F}, {"2a", 0x2A}, {"zz", 0x00},
                {"123", 0x23}, {"C5", 0xC5},   {"-1", 0xFF}, {"fffffff3", 0xF3}};
    clickEntry(1);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        type(row.text);
        EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, row.value));
        expectPictured(1, row.value);
        EXPECT_EQ(room().picture().at(0, 0), colour(row.value & 63));
        EXPECT_EQ(valueEdit().text(), row.text); // the user's own text stays while typing
    }
}

TEST_F(PalettePageTest, EveryKeyInTheBoxWritesAtOnce)
{
    type("1");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x01));
    QTest::keyClicks(&valueEdit(), "2");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x12));
    QTest::keyClicks(&valueEdit(), "3");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
    QTest::keyClick(&valueEdit(), Qt::Key_Backspace);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x12));
}

TEST_F(PalettePageTest, EmptyBoxWritesZero)
{
    clickEntry(1);
    valueEdit().setFocus();
    valueEdit().selectAll();
    QTest::keyClick(&valueEdit(), Qt::Key_Delete);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
    expectPictured(1, 0x00);
}

TEST_F(PalettePageTest, LeavingTheBoxShowsTheByteAndWritesNothing)
{
    type("123");
    QTest::keyClick(&valueEdit(), Qt::Key_Tab);
    EXPECT_FALSE(valueEdit().hasFocus());
    EXPECT_EQ(valueEdit().text(), "23");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
}

TEST_F(PalettePageTest, EnterShowsTheByteToo)
{
    type("0x1F");
    QTest::keyClick(&valueEdit(), Qt::Key_Return);
    EXPECT_EQ(valueEdit().text(), "1f");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x1F));
}

TEST_F(PalettePageTest, FillingTheBoxWritesNothing)
{
    state.rom.writeByte(PaletteRom::kRising + 1, 0xE9);
    Bytes before = image();
    clickEntry(1); // the box goes from "1" to "e9"
    EXPECT_EQ(valueEdit().text(), "e9");
    valueEdit().setHex(0x77);
    valueEdit().setText();
    EXPECT_EQ(image(), before);
}

// Spins and button

TEST_F(PalettePageTest, BrightnessSpinStepsByARowAndWraps)
{
    clickEntry(1);
    click(grid(), 105, 0); // colour 5
    spin("brightnessSpin", false);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x35));
    expectShown(1, 0x35);
    EXPECT_EQ(valueEdit().text(), "35");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x35));
    spin("brightnessSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x05));
    spin("brightnessSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x15));
}

TEST_F(PalettePageTest, HueSpinStepsByOneAndWraps)
{
    clickEntry(1);
    spin("hueSpin", false);
    spin("hueSpin", false);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
    spin("hueSpin", false);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x3F));
    expectShown(1, 0x3F);
    EXPECT_EQ(valueEdit().text(), "3f");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x3F));
    spin("hueSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
}

TEST_F(PalettePageTest, SpinsSpringBackToTheMiddle)
{
    for (const char* name : {"brightnessSpin", "hueSpin"}) {
        auto& control = this->control<ArrowSpin>(name);
        const int middle = (control.minimum() + control.maximum()) / 2;
        for (const bool up : {true, true, true, false, false, false, false}) {
            spin(name, up);
            EXPECT_EQ(control.position(), middle);
            EXPECT_GT(control.maximum(), middle);
            EXPECT_LT(control.minimum(), middle);
        }
    }
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x30)); // 1, one row and one hue down
}

TEST_F(PalettePageTest, HeldSpinArrowGoesOnStepping)
{
    auto& control = this->control<ArrowSpin>("hueSpin");
    const QPoint up(control.width() / 2, 3);
    QTest::mousePress(&control, Qt::LeftButton, {}, up);
    EXPECT_TRUE(QTest::qWaitFor([this] { return state.rom.readByte(PaletteRom::kRising) >= 4; }));
    QTest::mouseRelease(&control, Qt::LeftButton, {}, up);
}

TEST_F(PalettePageTest, SpinsClearTheUpperTwoBits)
{
    type("c5");
    spin("hueSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x06));
}

TEST_F(PalettePageTest, SpinsStepByArrowKeys)
{
    auto& control = this->control<ArrowSpin>("brightnessSpin");
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_Up);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x11));
    QTest::keyClick(&control, Qt::Key_Down);
    QTest::keyClick(&control, Qt::Key_Down);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x31));
}

TEST_F(PalettePageTest, BlackButtonWritesColourFifteen)
{
    clickEntry(1);
    QTest::mouseClick(&control<QPushButton>("blackButton"), Qt::LeftButton);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x0F));
    expectShown(1, 0x0F);
    EXPECT_EQ(valueEdit().text(), "f");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x0F));
}

} // namespace
} // namespace velko::test::palette_page

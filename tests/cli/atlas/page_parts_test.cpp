#include "cli/atlas/page_parts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velko {
namespace {

using ::testing::HasSubstr;

// A picture of 256 x 240 pixels, shown at its own size, with one mark of 16 x 16 pixels.
std::string pictureWithMark(int x, int y, const std::string& name, bool nameBelow = false)
{
    return markedPicture(
        {"room.png", "Map", 256, 240, 1, {{"id", "unit", name, x, y, 16, nameBelow}}});
}

TEST(MarkedPicture, FrameStandsAroundWhatItMarks)
{
    EXPECT_THAT(pictureWithMark(100, 100, "Bat"),
                HasSubstr("<rect x=\"98\" y=\"98\" width=\"20\" height=\"20\"/>"));
}

TEST(MarkedPicture, NameStandsAboveTheMiddleOfItsFrame)
{
    EXPECT_THAT(pictureWithMark(100, 100, "Bat"), HasSubstr("<text x=\"108\" y=\"97\">Bat</text>"));
}

TEST(MarkedPicture, NameMayStandBelow)
{
    EXPECT_THAT(pictureWithMark(100, 100, "Bat", true),
                HasSubstr("<text x=\"108\" y=\"128\">Bat</text>"));
}

TEST(MarkedPicture, NameThatWouldBeCutOffStandsOnTheOtherSide)
{
    EXPECT_THAT(pictureWithMark(100, 4, "Bat"), HasSubstr("y=\"32\">Bat</text>"));
    EXPECT_THAT(pictureWithMark(100, 215, "Bat", true), HasSubstr("y=\"212\">Bat</text>"));
}

TEST(MarkedPicture, NameLeansInwardsAtTheSides)
{
    EXPECT_THAT(pictureWithMark(-8, 100, "Bat"),
                HasSubstr("<text x=\"2\" y=\"97\" style=\"text-anchor:start\">"));
    EXPECT_THAT(pictureWithMark(244, 100, "Bat"),
                HasSubstr("<text x=\"254\" y=\"97\" style=\"text-anchor:end\">"));
}

TEST(MarkedPicture, LongNameLeansFurtherFromTheSide)
{
    const std::string name = "Lantern to light"; // about 115 pixels
    EXPECT_THAT(pictureWithMark(50, 100, "Bat"), HasSubstr("y=\"97\">Bat"));
    EXPECT_THAT(pictureWithMark(45, 100, name),
                HasSubstr("<text x=\"45\" y=\"97\" style=\"text-anchor:start\">"));
    EXPECT_THAT(pictureWithMark(195, 100, name),
                HasSubstr("<text x=\"211\" y=\"97\" style=\"text-anchor:end\">"));
}

TEST(MarkedPicture, LabelsAreOfOneSizeOnEveryScale)
{
    const std::string html =
        markedPicture({"room.png", "Map", 64, 48, 4, {{"id", "unit", "Bat", 24, 20}}});
    EXPECT_THAT(html, HasSubstr("style=\"width:256px;height:192px\""));
    EXPECT_THAT(html, HasSubstr("font-size=\"3\""));
}

TEST(MarkedPicture, NamesLieAboveAllFrames)
{
    const std::string html = markedPicture(
        {"room.png", "Map", 256, 240, 1, {{"a", "unit", "Bat", 9, 9}, {"b", "unit", "Bee", 9, 9}}});
    EXPECT_LT(html.rfind("<rect"), html.find("<text"));
}

TEST(RoomHeading, IsTheNumberWhereThereIsNoName)
{
    AtlasRoom room;
    room.number = 0x1F;
    EXPECT_EQ(roomHeading(room), "Room 1f");
    EXPECT_EQ(roomTitle(room), "<span class=\"number\">Room 1f</span>");
    room.name = "A <b>";
    EXPECT_EQ(roomHeading(room), "Room 1f: A &#x3c;b&#x3e;");
    EXPECT_EQ(roomTitle(room), "<span class=\"number\">1f</span> A &#x3c;b&#x3e;");
}

} // namespace
} // namespace velko

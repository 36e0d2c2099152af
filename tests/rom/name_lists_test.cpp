#include "rom/name_lists.h"

#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using namespace std::string_view_literals;
using Names = std::vector<std::string>;

// The first `count` names of a list file that holds `text`.
Names namesIn(std::string_view text, std::size_t count)
{
    const test::TemporaryFolder folder;
    Names names(count, "untouched");
    readNameList(folder.write("list.txt", text), names, " : ??");
    return names;
}

TEST(ReadNameList, OneNamePerLine)
{
    EXPECT_EQ(namesIn("Cave\nHill\nLake", 3), (Names{"Cave", "Hill", "Lake"}));
}

TEST(ReadNameList, ShortListIsFilledUpWithHexadecimalNames)
{
    EXPECT_EQ(namesIn("Cave\nHill\nLake", 5), (Names{"Cave", "Hill", "Lake", "3 : ??", "4 : ??"}));
}

TEST(ReadNameList, FinalLineBreakYieldsOneEmptyName)
{
    EXPECT_EQ(namesIn("Cave\nHill\n", 4), (Names{"Cave", "Hill", "", "3 : ??"}));
}

TEST(ReadNameList, EmptyFileYieldsOneEmptyName)
{
    EXPECT_EQ(namesIn("", 3), (Names{"", "1 : ??", "2 : ??"}));
}

TEST(ReadNameList, EmptyLinesAreNames)
{
    EXPECT_EQ(namesIn("\n\nLake", 3), (Names{"", "", "Lake"}));
}

TEST(ReadNameList, TextBeyondTheListIsIgnored)
{
    EXPECT_EQ(namesIn("Cave\nHill\nLake\n", 2), (Names{"Cave", "Hill"}));
}

TEST(ReadNameList, NamesAreNotTrimmedOrParsed)
{
    EXPECT_EQ(namesIn("  Cave \t\n0x10: \"Hill\"\n#Lake", 3),
              (Names{"  Cave \t", "0x10: \"Hill\"", "#Lake"}));
}

TEST(ReadNameList, CarriageReturnOfALineBreakIsNoPartOfTheName)
{
    EXPECT_EQ(namesIn("Cave\r\nHill\r\n", 4), (Names{"Cave", "Hill", "", "3 : ??"}));
}

TEST(ReadNameList, OtherCarriageReturnsStay)
{
    EXPECT_EQ(namesIn("Ca\rve\r\r\nHill\r", 2), (Names{"Ca\rve\r", "Hill\r"}));
}

TEST(ReadNameList, AnyBytesAreAName)
{
    EXPECT_EQ(namesIn("\xFF\0\x80\nHill"sv, 2), (Names{std::string("\xFF\0\x80"sv), "Hill"}));
}

TEST(ReadNameList, MissingFileGivesFillersOnly)
{
    const test::TemporaryFolder folder;
    Names names(17);
    readNameList(folder.path() / "missing.txt", names, " : ?? ");
    EXPECT_EQ(names[0], "0 : ?? ");
    EXPECT_EQ(names[10], "a : ?? ");
    EXPECT_EQ(names[16], "10 : ?? ");
}

TEST(ReadNameList, AFolderOfThatNameGivesFillersOnly)
{
    const test::TemporaryFolder folder;
    Names names(1);
    readNameList(folder.path(), names, " : ??");
    EXPECT_EQ(names[0], "0 : ??");
}

TEST(ReadNameList, NoNamesAreAskedFor)
{
    EXPECT_EQ(namesIn("Cave\n", 0), Names{});
}

TEST(LoadNameLists, EachListComesFromItsFile)
{
    const test::TemporaryFolder folder;
    folder.write("unit.txt", "Bat"sv);
    folder.write("VRAMload.txt", "Font"sv);
    folder.write("music.txt", "March"sv);
    folder.write("roomlist.txt", "Cave"sv);
    folder.write("item.txt", "Rope"sv);
    NameLists names;
    loadNameLists(folder.path(), 2, names);
    EXPECT_EQ(names.units[0], "Bat");
    EXPECT_EQ(names.vramLoads[0], "Font");
    EXPECT_EQ(names.music[0], "March");
    EXPECT_EQ(names.rooms, (Names{"Cave", "1 : ??"}));
    EXPECT_EQ(names.items[0], "Rope");
}

TEST(LoadNameLists, WithoutFilesEveryNameIsAFiller)
{
    const test::TemporaryFolder folder;
    NameLists names;
    loadNameLists(folder.path() / "missing", 111, names);
    EXPECT_EQ(names.units[10], "a : ?? ");
    EXPECT_EQ(names.units[143], "8f : ?? ");
    EXPECT_EQ(names.vramLoads[254], "fe : ?? ");
    EXPECT_EQ(names.music[255], "ff : ??");
    EXPECT_EQ(names.rooms.size(), 111U);
    EXPECT_EQ(names.rooms[31], "1f : ??");
    EXPECT_EQ(names.items[25], "19 : ??");
}

TEST(LoadNameLists, ListsHaveTheirFixedSizes)
{
    const test::TemporaryFolder folder;
    NameLists names;
    loadNameLists(folder.path(), 256, names);
    EXPECT_EQ(names.units.size(), 144U);
    EXPECT_EQ(names.vramLoads.size(), 255U);
    EXPECT_EQ(names.music.size(), 256U);
    EXPECT_EQ(names.rooms.size(), 256U);
    EXPECT_EQ(names.items.size(), 26U);
}

TEST(LoadNameLists, TypesThatAreNamed)
{
    const test::TemporaryFolder folder;
    folder.write("unit.txt", "Bat\n\nCrab"sv);
    NameLists names;
    loadNameLists(folder.path(), 3, names);
    EXPECT_TRUE(names.hasUnitName(0));
    EXPECT_FALSE(names.hasUnitName(1)) << "an empty line";
    EXPECT_TRUE(names.hasUnitName(2));
    EXPECT_FALSE(names.hasUnitName(3)) << "3 : ??";
    EXPECT_FALSE(names.hasUnitName(143));
    EXPECT_FALSE(names.hasUnitName(144)) << "past the list";
    EXPECT_FALSE(names.hasUnitName(255));
}

TEST(LoadNameLists, NoRoomsMeanNoRoomNames)
{
    const test::TemporaryFolder folder;
    folder.write("roomlist.txt", "Cave\nHill\n"sv);
    NameLists names;
    names.rooms = {"left over"};
    loadNameLists(folder.path(), 0, names);
    EXPECT_TRUE(names.rooms.empty());
}

} // namespace
} // namespace velko

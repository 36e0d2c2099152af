#include "tests/e2e/console/console_game.h"

#include <optional>

namespace velko::test {
namespace {

constexpr std::uint8_t kFirstExitType = 40;

// The unit behind which an exit is; nothing when the room does not have it.
std::optional<DemoUnit> exitUnit(const EditorState& state, std::uint32_t room, std::uint32_t exit)
{
    for (const DemoUnit& unit : unitsOf(state, room))
        if (unit.type == kFirstExitType + exit && unit.column != 0)
            return unit;
    return std::nullopt;
}

class ConsoleDoorsTest : public ConsoleGame {
protected:
    // Byte of a slot in one of the four door tables.
    std::uint8_t doorByte(MiscField table, std::uint32_t room, std::uint32_t slot) const
    {
        return byteAt(value(table) + 4 * room + slot);
    }

    // Where an entrance puts the hero: into the middle of its cell.
    CameraPosition entrancePlace(std::uint32_t room, std::uint32_t slot) const
    {
        const int screen = doorByte(MiscField::ptrEntranceScreen, room, slot);
        const int block = doorByte(MiscField::ptrEntranceBlock, room, slot);
        return {((screen >> 4) - 1) * kScreenWidth + (block >> 4) * 16 + 8,
                (screen & 15) * kScreenHeight + (block & 15) * 16 + 8};
    }

    void goThrough(std::uint32_t from, std::uint32_t exit, const DemoUnit& unit)
    {
        SCOPED_TRACE(testing::Message() << "room " << from << ", exit " << exit);
        goToRoom(from);
        flyHeroTo({unit.x, unit.y});
        press(kButtonStart);
        settle();
        const std::uint32_t target = doorByte(MiscField::ptrExitRoom, from, exit);
        EXPECT_EQ(room(), target);
        EXPECT_EQ(hero(), entrancePlace(target, doorByte(MiscField::ptrExitEntrance, from, exit)));
    }
};

TEST_F(ConsoleDoorsTest, ExitsLeadToTheirEntrances)
{
    switchOn();
    int doors = 0;
    for (std::uint32_t from = 0; from < kDemoRooms; from += 4)
        for (std::uint32_t exit = 0; exit < 4; ++exit)
            if (const std::optional<DemoUnit> unit = exitUnit(state, from, exit)) {
                goThrough(from, exit, *unit);
                ++doors;
            }
    EXPECT_GE(doors, 40);
}

TEST_F(ConsoleDoorsTest, AwayFromAnExitNothingHappens)
{
    switchOn();
    const CameraPosition before = hero();
    press(kButtonStart);
    settle();
    EXPECT_EQ(room(), 0U);
    EXPECT_EQ(hero(), before);
}

TEST_F(ConsoleDoorsTest, RoomsFollowEachOtherAroundTheEnd)
{
    switchOn();
    press(kButtonB);
    settle();
    EXPECT_EQ(room(), 110U);
    press(kButtonA);
    settle();
    EXPECT_EQ(room(), 0U);
    press(kButtonA);
    settle();
    EXPECT_EQ(room(), 1U);
}

} // namespace
} // namespace velko::test

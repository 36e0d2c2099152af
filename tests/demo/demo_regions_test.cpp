#include "store/block_lengths.h"
#include "tests/demo/demo_game.h"

namespace velko::test {
namespace {

constexpr std::int32_t kLeastFree = 64;

class DemoRegions : public DemoGame {
protected:
    // A region that years of editing have gone through, with room for more.
    void expectWornRegion(const PointerArrayHandler& handler, const LengthRule& length)
    {
        const RegionUse use = useOf(handler, kDemoRooms, length);
        EXPECT_GE(use.sharedEntries, 1);
        EXPECT_GE(use.repeatedBlocks, 1);
        EXPECT_GT(use.orphanedBytes, 0U);
        EXPECT_GE(handler.freeSpace(), kLeastFree);
    }

    LengthRule fixed(std::uint32_t bytes)
    {
        return [bytes](std::uint32_t) { return bytes; };
    }
};

TEST_F(DemoRegions, TablesOfRoomsHave113Entries)
{
    for (const PointerArrayHandler* handler : state.store.levelHandlers())
        EXPECT_EQ(handler->entryCount(), 113);
    EXPECT_EQ(state.config.roomCount(), 111U);
}

TEST_F(DemoRegions, ScreenListsAreSharedRepeatedAndOrphaned)
{
    const PointerArrayHandler& handler = state.store.pahMapAlloc;
    expectWornRegion(handler, [&](std::uint32_t room) { return mapAllocLength(handler, room); });
}

TEST_F(DemoRegions, LayoutsAreSharedRepeatedAndOrphaned)
{
    const PointerArrayHandler& handler = state.store.pahMapLayout;
    expectWornRegion(handler, [&](std::uint32_t room) { return mapLayoutLength(handler, room); });
}

TEST_F(DemoRegions, PalettesAreSharedRepeatedAndOrphaned)
{
    expectWornRegion(state.store.pahPal, fixed(32));
}

TEST_F(DemoRegions, TileLoadsAreSharedRepeatedAndOrphaned)
{
    expectWornRegion(state.store.pahTileLoad, fixed(96));
}

TEST_F(DemoRegions, Tile32SetsAreSharedRepeatedAndOrphaned)
{
    expectWornRegion(state.store.pahTile32, fixed(1024));
}

TEST_F(DemoRegions, UnitListsAreSharedRepeatedAndOrphaned)
{
    expectWornRegion(state.store.pahUnit, [&](std::uint32_t room) {
        return static_cast<std::uint32_t>(5 * unitsOf(state, room).size() + 1);
    });
}

TEST_F(DemoRegions, LoadListsAreSharedRepeatedAndOrphaned)
{
    const PointerArrayHandler& handler = state.store.pahTileLoadType2;
    expectWornRegion(handler, [&](std::uint32_t room) {
        std::uint32_t length = 0;
        while (handler.dataByte(length, room) < 0x80)
            ++length;
        return length + 1;
    });
}

TEST_F(DemoRegions, AreaMovementIsWornWithTheFirstAreaStoredLast)
{
    const PointerArrayHandler& handler = state.store.pahMapAreaMovement;
    const auto length = [&](std::uint32_t area) {
        return std::uint32_t{handler.dataByte(0, area)} + 2;
    };
    ASSERT_EQ(handler.entryCount(), 15); // areas, the place after them, and two left over
    const RegionUse use = useOf(handler, 15, length);
    EXPECT_GE(use.repeatedBlocks, 1);
    EXPECT_GE(use.sharedEntries, 1);
    EXPECT_GT(use.orphanedBytes, 0U);
    EXPECT_EQ(use.end, handler.pointerOf(0) + length(0));
    EXPECT_GE(int{handler.descriptor().dEdge} - static_cast<int>(use.end), kLeastFree);
}

TEST_F(DemoRegions, FreeSpaceEndsWhereTheHighestBlockEnds)
{
    const PointerArrayHandler& layout = state.store.pahMapLayout;
    const RegionUse use = useOf(layout, kDemoRooms,
                                [&](std::uint32_t room) { return mapLayoutLength(layout, room); });
    EXPECT_EQ(layout.freeSpace(), layout.descriptor().dEdge - static_cast<int>(use.end));
    const PointerArrayHandler& units = state.store.pahUnit;
    const RegionUse unitUse = useOf(units, kDemoEntries, [&](std::uint32_t room) {
        return static_cast<std::uint32_t>(5 * unitsOf(state, room).size() + 1);
    });
    EXPECT_EQ(units.freeSpace(), units.descriptor().dEdge - static_cast<int>(unitUse.end));
}

TEST_F(DemoRegions, HighestUnitBlockIsAnEmptyList)
{
    const PointerArrayHandler& handler = state.store.pahUnit;
    std::uint32_t highest = 0;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room)
        if (handler.pointerOf(room) > handler.pointerOf(highest))
            highest = room;
    EXPECT_EQ(handler.dataByte(0, highest), 0xFF);
}

TEST_F(DemoRegions, Tile32RegionRunsOnIntoTheNextBank)
{
    const PointerArrayDescriptor& tile32 = state.store.pahTile32.descriptor();
    EXPECT_EQ(tile32.dBank[1], tile32.dBank[0] + 1);
    int sets = 0;
    int inSecondBank = 0;
    std::set<std::uint16_t> seen;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        const std::uint16_t address = state.store.pahTile32.pointerOf(room);
        if (!seen.insert(address).second)
            continue;
        ++sets;
        inSecondBank += address >= 0xC000 ? 1 : 0;
    }
    EXPECT_GE(sets, 24);
    EXPECT_GE(inSecondBank, 8);
}

TEST_F(DemoRegions, TruckRegionIsWornAndHasRoom)
{
    const std::uint32_t bank = value(MiscField::bpahTruckMovement_bank) * 16384 + 16;
    const std::uint32_t table = bank + (value(MiscField::bpahTruckMovement_pMemStart) & 0x7FFF);
    const std::uint32_t start = value(MiscField::bpahTruckMovement_dMemStart);
    const std::uint32_t sets = value(MiscField::bpahTruckMovement_pMemEdge)
        - value(MiscField::bpahTruckMovement_pMemStart);
    ASSERT_EQ(sets, 12U);
    std::map<std::uint32_t, Bytes> patterns; // offset -> phases
    int shared = 0;
    for (std::uint32_t set = 0; set < sets; ++set) {
        const std::uint32_t offset = byteAt(table + set);
        Bytes phases;
        do
            phases.push_back(byteAt(bank + (start & 0x7FFF) + offset
                                    + static_cast<std::uint32_t>(phases.size())));
        while (phases.back() < 0x80 && phases.size() < 256);
        EXPECT_LT(phases.size(), 256U);
        shared += patterns.emplace(offset, phases).second ? 0 : 1;
    }
    std::uint32_t end = 0;
    std::uint32_t orphaned = 0;
    std::set<Bytes> contents;
    int repeated = 0;
    for (const auto& [offset, phases] : patterns) {
        orphaned += offset - end;
        end = offset + static_cast<std::uint32_t>(phases.size());
        repeated += contents.insert(phases).second ? 0 : 1;
    }
    EXPECT_EQ(shared, 1);
    EXPECT_EQ(repeated, 1);
    EXPECT_EQ(orphaned, 3U);
    EXPECT_EQ(byteAt(table + sets - 1) + 1U, end); // the last set is the one stored last
    EXPECT_GE(value(MiscField::bpahTruckMovement_dMemEdge) - start - end, 64U);
}

} // namespace
} // namespace velko::test

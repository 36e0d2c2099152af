#include "check/region_survey.h"
#include "pages/data_management_model.h"
#include "tests/check/check_rom.h"
#include "tests/demo/demo_game.h"

#include <algorithm>
#include <random>
#include <rapidcheck/gtest.h>
#include <set>

namespace velko::test {
namespace {

// Keeps the last message.
class ListeningPrompt : public UserPrompt {
public:
    std::string told;

    void showMessage(std::string_view text, MessageIcon) override { told = text; }
    bool askYesNo(std::string_view, MessageIcon) override { return false; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        return YesNoCancel::kCancel;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }
};

// As long as no blocks overlap, the gaps are those that "Delete unused data" closes.
RC_GTEST_PROP(RomCheckProperty, GapsAreWhatDeletingUnusedDataRemoves, ())
{
    TestRom game(8);
    std::set<std::uint16_t> starts;
    for (std::uint32_t room = 0; room < 8; ++room) {
        const auto start = static_cast<std::uint16_t>(0xA000 + 32 * *rc::gen::inRange(0, 20));
        game.setPointer(&GameConfig::pahPal, room, start);
        starts.insert(start);
    }
    EditorState state;
    game.loadInto(state);
    std::uint32_t gaps = 0;
    for (const Finding& finding : checkRom(state)) {
        RC_ASSERT(finding.kind != FindingKind::kOverlappingBlocks);
        gaps += finding.kind == FindingKind::kGap ? 1 : 0;
    }
    // Whole palettes are missing between the lowest and the highest.
    const std::size_t missing = (*starts.rbegin() - *starts.begin()) / 32U + 1 - starts.size();
    ListeningPrompt prompt;
    DataManagementModel(state, prompt).deleteUnusedData(RoomDataKind::kPalette);
    if (missing == 0) {
        RC_ASSERT(gaps == 0U);
        RC_ASSERT(prompt.told == "No unused data found between normal data.");
    } else {
        RC_ASSERT(prompt.told.starts_with(std::to_string(32 * missing) + " (0x"));
        RC_ASSERT(prompt.told.ends_with(" in " + std::to_string(gaps) + " chunks."));
    }
}

class HostileRomCheck : public DemoGame {
protected:
    // What holds for any bytes.
    void expectBounded()
    {
        const Findings findings = checkRom(state);
        EXPECT_LT(findings.size(), 40000U);
        EXPECT_TRUE(std::ranges::is_sorted(findings, {}, &Finding::kind));
        for (const Finding& finding : findings) {
            EXPECT_LT(finding.room.value_or(0), kDemoEntries);
            EXPECT_LT(finding.area.value_or(0), kMostSurveyedEntries);
            EXPECT_FALSE(finding.room && finding.area);
            EXPECT_TRUE(finding.text.ends_with('.'));
        }
    }
};

TEST_F(HostileRomCheck, FilledWithOneByte)
{
    for (const std::uint8_t byte : Bytes{0x00, 0x01, 0x55, 0x80, 0xFF}) {
        state.rom.setBytes(Bytes(state.rom.size(), byte));
        state.prepareRoomData();
        expectBounded();
    }
}

TEST_F(HostileRomCheck, CutAnywhere)
{
    const Bytes whole(state.rom.bytes().begin(), state.rom.bytes().end());
    for (const int size : {1, 15, 16, 40'000, 200'000, 262'159}) {
        state.rom.setBytes(Bytes(whole.begin(), whole.begin() + size));
        state.prepareRoomData();
        expectBounded();
    }
}

TEST_F(HostileRomCheck, RandomBytes)
{
    std::mt19937 random(8);
    for (int turn = 0; turn < 4; ++turn) {
        Bytes bytes(state.rom.size());
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        state.rom.setBytes(std::move(bytes));
        state.prepareRoomData();
        expectBounded();
    }
}

// The tables of the overworld and of doors, and the blocks behind them, but not those of rooms.
TEST_F(HostileRomCheck, DamagedOverworldAndDoors)
{
    const Bytes whole(state.rom.bytes().begin(), state.rom.bytes().end());
    const std::uint32_t movement = state.store.pahMapAreaMovement.entryFileOffset(0);
    const std::uint32_t trucks = value(MiscField::ptrMapTruckInit);
    const std::uint32_t doors = value(MiscField::ptrEntranceScreen);
    std::mt19937 random(13);
    for (int turn = 0; turn < 50; ++turn) {
        Bytes bytes = whole;
        for (const std::uint32_t start : {movement, trucks, doors}) {
            for (int i = 0; i < 300; ++i)
                bytes.at(start + random() % 0x700) = static_cast<std::uint8_t>(random());
        }
        state.rom.setBytes(std::move(bytes));
        state.prepareRoomData();
        expectBounded();
    }
}

TEST_F(HostileRomCheck, OverworldOfAnyNumberOfAreasAndTrucks)
{
    for (const std::uint32_t number : {1U, 0x7FFFU, 0x8000U, 0xFFFFU, 0xFFFFFFFFU}) {
        state.config.setValue(MiscField::areas, number);
        state.config.setValue(MiscField::numOfMapTrucks, number);
        for (const MiscField field :
             {MiscField::bpahTruckMovement_bank, MiscField::bpahTruckMovement_pMemStart,
              MiscField::bpahTruckMovement_pMemEdge, MiscField::bpahTruckMovement_dMemStart,
              MiscField::bpahTruckMovement_dMemEdge}) {
            const std::uint32_t old = value(field);
            state.config.setValue(field, number);
            expectBounded();
            state.config.setValue(field, old);
        }
    }
}

} // namespace
} // namespace velko::test

#include "check/check_families.h"
#include "check/missing_places.h"
#include "check/room_groups.h"
#include "pages/door_model.h"
#include "rom/number_text.h"
#include "store/file_offsets.h"

#include <algorithm>
#include <array>
#include <vector>

namespace velko {

namespace {

// An exit's byte cannot tell more.
constexpr std::uint32_t kMostSlots = 256;

// A table of one byte per slot.
struct DoorTable {
    MiscField table;
    MiscField perRoom;
    const char* byte;
};
constexpr std::array<DoorTable, 4> kDoorTables = {{
    {MiscField::ptrEntranceScreen, MiscField::roomEntrances, "The screen of entrance "},
    {MiscField::ptrEntranceBlock, MiscField::roomEntrances, "The block of entrance "},
    {MiscField::ptrExitRoom, MiscField::roomExits, "The room of exit "},
    {MiscField::ptrExitEntrance, MiscField::roomExits, "The entrance of exit "},
}};

class DoorCheck {
public:
    DoorCheck(const EditorState& state, Findings& findings)
        : m_state(state), m_rooms(state.config.roomCount()), m_findings(findings)
    {
    }

    void run() const
    {
        std::vector<RoomSet> ways(m_rooms);
        for (std::uint32_t room = 0; room < m_rooms; ++room) {
            checkEntrances(room);
            for (std::uint32_t slot = 0; slot < slots(MiscField::roomExits); ++slot) {
                const std::uint8_t target = byteOf(exitRoom(room, slot));
                if (checkExit(room, slot, target))
                    ways[room].set(target);
            }
        }
        // Where a part of the tables is missing, nobody knows.
        if (checkFile() && slots(MiscField::roomExits) > 0)
            reportUnreached(ways);
    }

private:
    std::uint32_t slots(MiscField perRoom) const
    {
        return std::min(m_state.config.value(perRoom), kMostSlots);
    }
    // File offset of a slot's byte in one of the four tables; wraps at 32 bits.
    std::uint32_t offset(MiscField table, MiscField perRoom, std::uint32_t room,
                         std::uint32_t slot) const
    {
        return m_state.config.value(table) + room * m_state.config.value(perRoom) + slot;
    }
    std::uint32_t exitRoom(std::uint32_t room, std::uint32_t slot) const
    {
        return offset(MiscField::ptrExitRoom, MiscField::roomExits, room, slot);
    }
    std::uint32_t entranceScreen(std::uint32_t room, std::uint32_t slot) const
    {
        return offset(MiscField::ptrEntranceScreen, MiscField::roomEntrances, room, slot);
    }
    std::uint32_t entranceBlock(std::uint32_t room, std::uint32_t slot) const
    {
        return offset(MiscField::ptrEntranceBlock, MiscField::roomEntrances, room, slot);
    }
    bool isThere(std::uint32_t fileOffset) const { return fileOffset < m_state.rom.size(); }
    std::uint8_t byteOf(std::uint32_t fileOffset) const { return m_state.rom.readByte(fileOffset); }

    Entrance entranceOf(std::uint32_t room, std::uint32_t slot) const
    {
        return Entrance::fromBytes(byteOf(entranceScreen(room, slot)),
                                   byteOf(entranceBlock(room, slot)));
    }
    bool hasEntrance(std::uint32_t room, std::uint32_t slot) const
    {
        return isThere(entranceScreen(room, slot)) && isThere(entranceBlock(room, slot));
    }

    // Returns whether all of the tables is in the file.
    bool checkFile() const
    {
        bool isWhole = true;
        for (const DoorTable& table : kDoorTables) {
            MissingPlaces missing("byte");
            for (std::uint32_t room = 0; room < m_rooms; ++room) {
                for (std::uint32_t slot = 0; slot < slots(table.perRoom); ++slot) {
                    const std::uint32_t place = offset(table.table, table.perRoom, room, slot);
                    if (!isThere(place))
                        missing.add(room, place, table.byte + hexText(slot) + " lies");
                }
            }
            missing.report(m_findings);
            isWhole = isWhole && missing.isEmpty();
        }
        return isWhole;
    }

    void checkEntrances(std::uint32_t room) const
    {
        if (!entryLiesInFile(m_state.rom, m_state.store.pahMapLayout, room))
            return; // its size is not known
        const RoomSize size = m_state.renderer.roomSize(room);
        for (std::uint32_t slot = 0; slot < slots(MiscField::roomEntrances); ++slot) {
            const Entrance entrance = entranceOf(room, slot);
            if (!hasEntrance(room, slot) || !entrance.isSet()
                || (entrance.screenColumn <= size.columns && entrance.screenRow < size.rows
                    && entrance.blockRow < kScreenRows))
                continue;
            m_findings.push_back(
                {FindingKind::kEntranceOutsideRoom, room, entranceScreen(room, slot),
                 "Entrance " + hexText(slot) + " is in screen column "
                     + decimalText(entrance.screenColumn - 1U) + ", row "
                     + decimalText(entrance.screenRow) + ", block row "
                     + decimalText(entrance.blockRow) + " of a room of " + decimalText(size.columns)
                     + " x " + countText(size.rows, "screen") + "."});
        }
    }

    // The tables do not tell whether an exit is in use. Returns whether it is a way to its room;
    // nothing is found where a byte is missing.
    bool checkExit(std::uint32_t room, std::uint32_t slot, std::uint8_t target) const
    {
        if (!isThere(exitRoom(room, slot)))
            return false;
        const std::string exit = "Exit " + hexText(slot) + " leads to ";
        if (target >= m_rooms) {
            m_findings.push_back({FindingKind::kExitToMissingRoom, room, exitRoom(room, slot),
                                  exit + "room " + hexText(target) + "; there are rooms 0 to "
                                      + hexText(m_rooms - 1) + "."});
            return false;
        }
        const std::uint32_t place =
            offset(MiscField::ptrExitEntrance, MiscField::roomExits, room, slot);
        const std::uint8_t entrance = byteOf(place);
        const std::uint32_t entrances = slots(MiscField::roomEntrances);
        if (entrances == 0 || !isThere(place)
            || (entrance < entrances
                && (!hasEntrance(target, entrance) || entranceOf(target, entrance).isSet())))
            return true;
        m_findings.push_back({FindingKind::kExitToUnsetEntrance, room, place,
                              exit + "entrance " + hexText(entrance) + " of room " + hexText(target)
                                  + ", which is not set."});
        return false;
    }

    void reportUnreached(const std::vector<RoomSet>& ways) const
    {
        for (const RoomGroup& group : groupsWithoutWayIn(ways)) {
            const std::uint32_t room = group.front();
            if (room == 0) // where the game starts, as far as anyone can tell
                continue;
            if (group.size() == 1)
                m_findings.push_back({FindingKind::kUnreachableRoom, room, entranceScreen(room, 0),
                                      "No way leads here from another room."});
            else
                m_findings.push_back({FindingKind::kUnreachableGroup, room, entranceScreen(room, 0),
                                      "This room and " + otherRoomsText(group)
                                          + " lead to one another, and no way leads here from any "
                                            "other room."});
        }
    }
    // "room 7", "rooms 7, 9 and c": without the lowest one.
    static std::string otherRoomsText(const RoomGroup& group)
    {
        std::string text = group.size() == 2 ? "room " : "rooms ";
        for (std::size_t i = 1; i < group.size(); ++i) {
            if (i > 1)
                text += i + 1 == group.size() ? " and " : ", ";
            text += hexText(group[i]);
        }
        return text;
    }

    const EditorState& m_state;
    std::uint32_t m_rooms;
    Findings& m_findings;
};

} // namespace

void checkDoors(const EditorState& state, Findings& findings)
{
    DoorCheck(state, findings).run();
}

} // namespace velko

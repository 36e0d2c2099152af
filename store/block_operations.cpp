#include "store/block_operations.h"

#include "rom/number_text.h"
#include "store/block_gaps.h"
#include "store/block_keys.h"
#include "store/block_lengths.h"
#include "store/data_window.h"
#include "store/length_table.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace velko {

BlockOperations::BlockOperations(PointerArrayHandler& handler, const BlockKind& kind,
                                 UserPrompt& prompt)
    : m_handler(handler), m_kind(kind), m_prompt(prompt)
{
}

void BlockOperations::setPointerToRoom(std::uint32_t roomB)
{
    m_handler.setPointer(m_handler.currentRoom(), m_handler.pointerOf(roomB));
    askToCopySize(roomB);
}

void BlockOperations::askToCopySize(std::uint32_t roomB)
{
    if (!m_kind.entryHoldsSize
        || !m_prompt.askYesNo("Do you want to copy Width and Height bytes as well? (Recommended, "
                              "specific to Map Layout data)"))
        return;
    for (const std::uint32_t byte : {kMapWidthByte, kMapHeightByte})
        m_handler.setEntryByte(byte, m_handler.entryByte(byte, roomB));
}

bool BlockOperations::allocateUniqueData(std::span<const std::uint8_t> initialBytes)
{
    const auto count = static_cast<std::int32_t>(initialBytes.size());
    if (m_handler.freeSpace() < count) {
        m_prompt.showMessage("Not enough free space. Try \"Delete unused data\" or \"Join "
                             "identical data\".");
        return false;
    }
    m_handler.setPointer(m_handler.currentRoom(), m_handler.freeSpaceStart());
    for (std::uint32_t i = 0; i < initialBytes.size(); ++i)
        m_handler.setDataByte(i, initialBytes[i]);
    m_handler.setFreeSpace(m_handler.freeSpace() - count);
    setRoomSize(kNewLayoutWidth, kNewLayoutHeight);
    return true;
}

void BlockOperations::deleteData()
{
    const std::uint32_t room = m_handler.currentRoom();
    // Refused when the free space is not known; the steps below are still taken.
    static_cast<void>(m_handler.deleteBytes(0, length(room)));
    // Compared as numbers: where nothing of the region is known to be used, no address is meant.
    const std::int64_t usedEnd = std::int64_t{m_handler.descriptor().dEdge} - m_handler.freeSpace();
    if (m_handler.pointerOf(room) == usedEnd)
        leaveFreeSpace();
    setRoomSize(0, 0);
}

void BlockOperations::setRoomSize(std::uint8_t width, std::uint8_t height)
{
    if (!m_kind.entryHoldsSize)
        return;
    m_handler.setEntryByte(kMapWidthByte, width);
    m_handler.setEntryByte(kMapHeightByte, height);
}

// The room points at free space: gives it the pointer of the next room that has another one.
void BlockOperations::leaveFreeSpace()
{
    const std::uint32_t count = entryCount();
    const std::uint16_t own = m_handler.pointerOf();
    std::uint32_t room = m_handler.currentRoom();
    for (std::uint32_t step = 0; step < count; ++step) {
        room = room + 1 < count ? room + 1 : 0;
        const std::uint16_t pointer = m_handler.pointerOf(room);
        if (pointer != own) {
            m_handler.setPointer(m_handler.currentRoom(), pointer);
            return;
        }
    }
}

CloneResult BlockOperations::cloneDataOfRoom(std::uint32_t roomB)
{
    if (m_handler.pointerOf(roomB) == m_handler.pointerOf()) {
        m_prompt.showMessage("Rooms have the same pointer! Copying is pointless!");
        return CloneResult::kNothing;
    }
    const std::uint32_t lengthB = length(roomB);
    const std::uint32_t ownLength = length(m_handler.currentRoom());
    if (lengthB == 0 || ownLength == 0)
        return CloneResult::kNothing;

    CloneResult result = CloneResult::kWholeBlock;
    if (lengthB != ownLength) {
        switch (m_prompt.askYesNoCancel(
            "Source and Destination rooms doesn't have the same data lengths. \nDo you want to "
            "re-adjust Dest. data size by adding/removing bytes? \n(YES to adjust, NO to copy "
            "possible number of bytes without adjusting, CANCEL to not do anything.)")) {
        case YesNoCancel::kCancel:
            return CloneResult::kNothing;
        case YesNoCancel::kYes:
            if (!adjustLength(ownLength, lengthB))
                return CloneResult::kNothing;
            break;
        case YesNoCancel::kNo:
            result =
                lengthB <= ownLength ? CloneResult::kWholeIntoLonger : CloneResult::kPartOfLonger;
            break;
        }
    }
    copyFrom(roomB, result == CloneResult::kPartOfLonger ? ownLength : lengthB);
    if (result != CloneResult::kPartOfLonger)
        askToCopySize(roomB);
    return result;
}

bool BlockOperations::adjustLength(std::uint32_t from, std::uint32_t to)
{
    if (to <= from) {
        if (m_handler.deleteBytes(0, from - to).ok())
            return true;
        m_prompt.showMessage("Deletion failed. Copying aborted.");
        return false;
    }
    if (m_handler.insertBlank(0, to - from).ok())
        return true;
    m_prompt.showMessage("Insertion failed. (Likely not enough free space). Copying aborted.");
    return false;
}

void BlockOperations::copyFrom(std::uint32_t roomB, std::uint32_t count)
{
    // Room B's pointer is read for every byte: adjusting the room's own block may have moved it,
    // and where blocks overlap the copy runs over itself.
    for (std::uint32_t i = 0; i < count; ++i)
        m_handler.setDataByte(i, m_handler.dataByte(i, roomB));
}

void BlockOperations::deleteUnusedData()
{
    std::uint32_t total = 0;
    std::uint32_t chunks = 0;
    BlockMap map(m_handler, m_kind);
    for (std::uint32_t room = 0; room < entryCount(); ++room) {
        const BlockGap gap = map.gapBehind(room);
        if (gap.length == 0)
            continue;
        static_cast<void>(m_handler.deleteBytesAt(gap.start, gap.length));
        total += gap.length;
        ++chunks;
        map.rebuild();
    }
    if (chunks == 0) {
        m_prompt.showMessage("No unused data found between normal data.");
        return;
    }
    m_prompt.showMessage(decimalText(total) + " (0x" + hexText(total) + ") bytes removed in "
                         + decimalText(chunks) + " chunks.");
}

void BlockOperations::joinIdenticalData(std::span<const std::string> roomNames)
{
    const auto nameOf = [&](std::uint32_t room) {
        return room < roomNames.size() ? roomNames[room] : std::string();
    };
    const std::uint32_t count = entryCount();
    DataWindow window(m_handler);
    LengthTable lengths(m_handler, m_kind);
    BlockKeys keys(m_handler, window, lengths);
    const auto contents = [&](std::uint32_t room, std::uint32_t blockLength) {
        return window.bytes(m_handler.pointerOf(room), blockLength);
    };
    bool joined = false;
    // Blocks that no entry behind them repeats, as pointer << 32 | length: the entries that share
    // one, maybe tens of thousands, need not all be compared with the rest of the table.
    std::unordered_set<std::uint64_t> unrepeated;
    for (std::uint32_t i = 0; i + 1 < count; ++i) {
        const std::uint32_t blockLength = lengths.of(i);
        const std::uint64_t place = std::uint64_t{m_handler.pointerOf(i)} << 32 | blockLength;
        if (blockLength == 0 || !unrepeated.insert(place).second)
            continue;
        const auto now = contents(i, blockLength);
        // A copy: joining moves the bytes.
        const std::vector<std::uint8_t> block(now.begin(), now.end());
        const std::uint64_t key = keys.of(i);
        for (std::uint32_t j = keys.firstFrom(i + 1, key); j < count;
             j = keys.firstFrom(j + 1, key)) {
            if (m_handler.pointerOf(j) == m_handler.pointerOf(i) || lengths.of(j) != blockLength
                || !std::ranges::equal(contents(j, blockLength), block))
                continue;
            join(i, j, blockLength);
            window.refresh();
            lengths.refresh();
            keys.refresh();
            unrepeated.clear();
            joined = true;
            m_prompt.showMessage("Room \"" + nameOf(i) + "\" and Room \"" + nameOf(j)
                                 + "\" had identical data and has been joined to use the same "
                                   "data.");
        }
    }
    if (!joined)
        m_prompt.showMessage("Found no identical Rooms with different pointers.");
}

void BlockOperations::join(std::uint32_t keeper, std::uint32_t joined, std::uint32_t blockLength)
{
    const std::uint16_t oldPointer = m_handler.pointerOf(joined);
    const std::uint32_t count = entryCount();
    for (std::uint32_t room = joined + 1; room < count; ++room) {
        if (m_handler.pointerOf(room) == oldPointer)
            m_handler.setPointer(room, m_handler.pointerOf(keeper));
    }
    static_cast<void>(m_handler.deleteBytes(0, blockLength, joined));
    // The deletion may have moved the block that is kept.
    m_handler.setPointer(joined, m_handler.pointerOf(keeper));
}

std::uint32_t BlockOperations::entryCount() const
{
    return static_cast<std::uint32_t>(std::max(m_handler.entryCount(), 0));
}

} // namespace velko

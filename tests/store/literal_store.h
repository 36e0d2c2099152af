#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velko::test {

// The rules for editing blocks, one by one and byte by byte, on a plain image: the reference for
// regions that make no sense (blocks that overlap, wrap or lie outside, tables inside their own
// data, banks in any order). Shares no code with what it checks.
class LiteralStore {
public:
    enum class Rule { kLayout, kScreenList, kFixed32 };

    std::vector<std::uint8_t> image;
    std::array<std::uint8_t, 2> dBank{};
    std::uint32_t pBank = 0;
    std::uint32_t pMemStart = 0;
    std::uint32_t pMemEdge = 0;
    std::uint32_t dEdge = 0;
    std::uint32_t pad = 2;
    std::int64_t freeSpace = -1;
    std::uint32_t room = 0;
    Rule rule = Rule::kLayout;
    std::vector<std::string> messages;

    std::uint8_t read(std::uint32_t at) const { return at < image.size() ? image[at] : 0x55; }
    void write(std::uint32_t at, std::uint32_t value)
    {
        if (at < image.size())
            image[at] = static_cast<std::uint8_t>(value & 0xFF);
    }
    std::uint32_t mapped(std::int64_t address) const
    {
        const auto a = static_cast<std::uint32_t>(address & 0xFFFF);
        return dBank[(a & 0x7FFF) >> 14] * 0x4000U + (a & 0x3FFF) + 16;
    }
    std::uint32_t entry(std::uint32_t r) const
    {
        return pBank * 0x4000 + ((pMemStart + r * pad) & 0x7FFF) + 16;
    }
    std::uint32_t pointer(std::uint32_t r) const
    {
        return read(entry(r)) + 256U * read(entry(r) + 1);
    }
    void setPointer(std::uint32_t r, std::uint32_t value)
    {
        write(entry(r), value);
        write(entry(r) + 1, value >> 8);
    }
    std::uint32_t entryCount() const
    {
        if (pad == 0 || pMemEdge < pMemStart)
            return 0;
        return (pMemEdge - pMemStart) / pad;
    }
    std::uint8_t data(std::uint32_t r, std::uint32_t offset) const
    {
        return read(mapped(std::int64_t{pointer(r)} + offset));
    }
    std::uint32_t length(std::uint32_t r) const
    {
        if (rule == Rule::kFixed32)
            return 32;
        if (rule == Rule::kLayout)
            return std::uint32_t{read(entry(r) + 2)} * read(entry(r) + 3);
        std::uint32_t offset = 0;
        for (; offset < 0x10000; offset += 2) {
            const std::uint32_t at = mapped(std::int64_t{pointer(r)} + offset);
            if (read(at) == 0xFF && read(at + 1) == 0xFF)
                break;
        }
        return offset + 2;
    }

    std::uint32_t insert(std::uint32_t offset, const std::vector<std::uint8_t>& bytes)
    {
        if (freeSpace == -1)
            return 1;
        const auto count = static_cast<std::int64_t>(bytes.size());
        if (count > freeSpace)
            return static_cast<std::uint32_t>((count - freeSpace) << 16) | 2;
        const std::int64_t s = mapped(std::int64_t{pointer(room)} + offset);
        const std::int64_t e = mapped(dEdge - freeSpace - 1);
        for (std::int64_t i = e; i >= s; --i)
            write(static_cast<std::uint32_t>(i + count), read(static_cast<std::uint32_t>(i)));
        freeSpace -= count;
        for (std::int64_t i = 0; i < count; ++i)
            write(static_cast<std::uint32_t>(s + i), bytes[static_cast<std::size_t>(i)]);
        const std::uint32_t p = (pointer(room) + offset) & 0xFFFF;
        forEachEntry([&](std::uint32_t r) {
            const std::uint32_t w = pointer(r);
            if (w > p || (w == p && offset >= 1))
                setPointer(r, w + static_cast<std::uint32_t>(count));
        });
        return 0;
    }

    std::uint32_t remove(std::uint32_t r, std::uint32_t offset, std::uint32_t count)
    {
        if (freeSpace == -1)
            return 1;
        moveDown((pointer(r) + offset) & 0xFFFF, count);
        lowerPointers((pointer(r) + offset) & 0xFFFF, count);
        return 0;
    }
    std::uint32_t removeAt(std::uint32_t address, std::uint32_t count)
    {
        if (freeSpace == -1)
            return 1;
        moveDown(address & 0xFFFF, count);
        lowerPointers(address & 0xFFFF, count);
        return 0;
    }

    void allocate(const std::vector<std::uint8_t>& bytes)
    {
        const auto count = static_cast<std::int64_t>(bytes.size());
        if (freeSpace < count) {
            messages.emplace_back("Not enough free space. Try \"Delete unused data\" or \"Join "
                                  "identical data\".");
            return;
        }
        setPointer(room, static_cast<std::uint32_t>((dEdge - freeSpace) & 0xFFFF));
        for (std::uint32_t i = 0; i < count; ++i)
            write(mapped(std::int64_t{pointer(room)} + i), bytes[i]);
        freeSpace -= count;
        setSize(3, 1);
    }

    void deleteData()
    {
        remove(room, 0, length(room));
        if (pointer(room) == dEdge - freeSpace) {
            const std::uint32_t n = entryCount();
            std::uint32_t r = room;
            for (std::uint32_t step = 0; step < n; ++step) {
                r = r + 1 >= n ? 0 : r + 1;
                if (pointer(r) != pointer(room)) {
                    setPointer(room, pointer(r));
                    break;
                }
            }
        }
        setSize(0, 0);
    }

    enum class Adjust { kYes, kNo, kCancel };

    int clone(std::uint32_t b, Adjust adjust, bool copySize)
    {
        if (pointer(b) == pointer(room)) {
            messages.emplace_back("Rooms have the same pointer! Copying is pointless!");
            return 0;
        }
        const std::uint32_t lenB = length(b);
        const std::uint32_t lenC = length(room);
        if (lenB == 0 || lenC == 0)
            return 0;
        int result = 1;
        if (lenB != lenC) {
            if (adjust == Adjust::kCancel)
                return 0;
            if (adjust == Adjust::kNo) {
                result = lenB <= lenC ? 3 : 2;
            } else if (lenB <= lenC) {
                if (remove(room, 0, lenC - lenB) != 0) {
                    messages.emplace_back("Deletion failed. Copying aborted.");
                    return 0;
                }
            } else if (insert(0, std::vector<std::uint8_t>(lenB - lenC)) != 0) {
                messages.emplace_back(
                    "Insertion failed. (Likely not enough free space). Copying aborted.");
                return 0;
            }
        }
        const std::uint32_t n = result == 1 ? lenB : std::min(lenB, lenC);
        for (std::uint32_t i = 0; i < n; ++i)
            write(mapped(std::int64_t{pointer(room)} + i), data(b, i));
        if (result != 2 && copySize)
            copySizeOf(b);
        return result;
    }

    void setPointerToRoom(std::uint32_t b, bool copySize)
    {
        setPointer(room, pointer(b));
        if (copySize)
            copySizeOf(b);
    }

    // The linear search: every entry against every other.
    void deleteUnused()
    {
        std::uint32_t total = 0;
        std::uint32_t chunks = 0;
        const std::uint32_t n = entryCount();
        for (std::uint32_t i = 0; i < n; ++i) {
            const std::uint32_t len = length(i);
            if (len == 0)
                continue;
            const std::uint32_t p = pointer(i);
            const std::uint32_t end = (p + len) & 0xFFFF;
            std::uint32_t next = 0x10000;
            bool gap = false;
            if (end < dEdge) {
                gap = true;
                for (std::uint32_t j = i + 1 == n ? 0 : i + 1; j != i; j = j + 1 == n ? 0 : j + 1) {
                    const std::uint32_t q = pointer(j);
                    if (q == end || (p >= q && end < q + length(j))) {
                        gap = false;
                        break;
                    }
                    if (q > end && q < next)
                        next = q;
                }
            }
            if (gap && next != 0x10000) {
                removeAt(end, next - end);
                total += next - end;
                chunks += 1;
            }
        }
        if (chunks == 0) {
            messages.emplace_back("No unused data found between normal data.");
            return;
        }
        std::array<char, 80> text{};
        std::snprintf(text.data(), text.size(), "%u (0x%x) bytes removed in %u chunks.", total,
                      total, chunks);
        messages.emplace_back(text.data());
    }

    void joinIdentical(const std::vector<std::string>& names)
    {
        const auto name = [&](std::uint32_t r) { return r < names.size() ? names[r] : ""; };
        bool joined = false;
        const std::uint32_t n = entryCount();
        for (std::uint32_t i = 0; i + 1 < n; ++i) {
            const std::uint32_t len = length(i);
            if (len == 0)
                continue;
            std::vector<std::uint8_t> buffer(len);
            for (std::uint32_t b = 0; b < len; ++b)
                buffer[b] = data(i, b);
            for (std::uint32_t j = i + 1; j < n; ++j) {
                if (pointer(j) == pointer(i) || length(j) != len)
                    continue;
                bool same = true;
                for (std::uint32_t b = 0; b < len && same; ++b)
                    same = data(j, b) == buffer[b];
                if (!same)
                    continue;
                const std::uint32_t old = pointer(j);
                for (std::uint32_t k = j + 1; k < n; ++k) {
                    if (pointer(k) == old)
                        setPointer(k, pointer(i));
                }
                remove(j, 0, len);
                setPointer(j, pointer(i));
                messages.push_back("Room \"" + name(i) + "\" and Room \"" + name(j)
                                   + "\" had identical data and has been joined to use the same "
                                     "data.");
                joined = true;
            }
        }
        if (!joined)
            messages.emplace_back("Found no identical Rooms with different pointers.");
    }

private:
    template <typename Visit> void forEachEntry(Visit visit)
    {
        if (pad == 0)
            return;
        std::uint32_t r = 0;
        for (std::uint64_t a = pMemStart; a < pMemEdge; a += pad)
            visit(r++);
    }
    void moveDown(std::uint32_t address, std::uint32_t count)
    {
        if (count == 0)
            return;
        const std::int64_t s = mapped(address);
        const std::int64_t e = mapped(dEdge - 1 - freeSpace - count);
        for (std::int64_t i = s; i <= e; ++i)
            write(static_cast<std::uint32_t>(i), read(static_cast<std::uint32_t>(i + count)));
        const std::uint32_t last = mapped(dEdge - freeSpace - 1);
        for (std::uint32_t i = mapped(dEdge - freeSpace - count); i <= last; ++i)
            write(i, 0);
    }
    void lowerPointers(std::uint32_t p, std::uint32_t count)
    {
        forEachEntry([&](std::uint32_t r) {
            const std::uint32_t w = pointer(r);
            if (w > p)
                setPointer(r, w - count);
        });
        freeSpace += count;
    }
    void setSize(std::uint32_t width, std::uint32_t height)
    {
        if (rule != Rule::kLayout)
            return;
        write(entry(room) + 2, width);
        write(entry(room) + 3, height);
    }
    void copySizeOf(std::uint32_t b)
    {
        if (rule != Rule::kLayout)
            return;
        write(entry(room) + 2, read(entry(b) + 2));
        write(entry(room) + 3, read(entry(b) + 3));
    }
};

} // namespace velko::test

#include "patch/ips_patch.h"

#include "patch/patch_reader.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::size_t kCutLength = 3;

// Patches of careless makers have a record at kIpsEndOffset. It is the end only where what
// follows is nothing, or a size.
bool isAtEnd(const PatchReader& reader)
{
    const auto rest = reader.rest();
    return (rest.size() == kIpsEnd.size() || rest.size() == kIpsEnd.size() + kCutLength)
        && std::equal(kIpsEnd.begin(), kIpsEnd.end(), rest.begin());
}

// The bytes from `offset` on, the file made longer if it has to be.
std::span<std::uint8_t> room(std::vector<std::uint8_t>& file, std::size_t offset, std::size_t count)
{
    file.resize(std::max(file.size(), offset + count));
    return std::span(file).subspan(offset, count);
}

void applyRecord(PatchReader& reader, std::vector<std::uint8_t>& file)
{
    const std::size_t offset = reader.bigEndian(3);
    const std::size_t size = reader.bigEndian(2);
    if (size > 0) {
        const auto bytes = reader.take(size);
        if (!reader.failed())
            std::ranges::copy(bytes, room(file, offset, size).begin());
        return;
    }
    const std::size_t count = reader.bigEndian(2);
    const auto value = static_cast<std::uint8_t>(reader.bigEndian(1));
    if (!reader.failed() && count > 0)
        std::ranges::fill(room(file, offset, count), value);
}

} // namespace

PatchResult applyIpsPatch(std::span<const std::uint8_t> source, std::span<const std::uint8_t> patch)
{
    if (source.size() > kLargestPatchedFile)
        return PatchResult::refused("the file to patch is larger than 32 MB");
    PatchReader reader(patch);
    reader.take(kIpsMagic.size());
    std::vector<std::uint8_t> file(source.begin(), source.end());
    while (!isAtEnd(reader)) {
        applyRecord(reader, file);
        if (reader.failed())
            return PatchResult::damaged("a record is cut short, or the end mark is missing");
    }
    reader.take(kIpsEnd.size());
    if (!reader.rest().empty())
        file.resize(std::min<std::size_t>(file.size(), reader.bigEndian(kCutLength)));
    return PatchResult::done(std::move(file));
}

} // namespace velko

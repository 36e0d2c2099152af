#include "patch/bps_patch.h"
#include "patch/crc32.h"
#include "patch/patch_writer.h"

#include <cstdlib>

namespace {

using namespace velko;

// The input as a patch whose own sum and that of the source are right, so that it is read on.
std::vector<std::uint8_t> patchOf(std::span<const std::uint8_t> input, std::uint32_t sourceSum,
                                  std::uint32_t targetSum)
{
    PatchWriter writer;
    writer.text(kBpsMagic);
    writer.bytes(input);
    writer.littleEndian(sourceSum);
    writer.littleEndian(targetSum);
    writer.littleEndian(crc32Of(writer.patch()));
    return writer.patch();
}

} // namespace

// Any actions either give exactly the announced bytes or a reason. The input is the patch without
// magic and sums, and serves as a file to make a patch to as well.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span<const std::uint8_t> input(data, size);
    std::vector<std::uint8_t> source(300);
    for (std::size_t i = 0; i < source.size(); ++i)
        source[i] = static_cast<std::uint8_t>(i * i);
    const std::uint32_t sourceSum = crc32Of(source);
    // Nobody can guess a sum, so a result that is given at all is a wrong one.
    const PatchResult guessed = applyBpsPatch(source, patchOf(input, sourceSum, 0x600D600D));
    if (guessed.ok() && crc32Of(guessed.bytes) != 0x600D600D)
        std::abort();
    // As it comes: nothing but a crash could go wrong here.
    (void)applyBpsPatch(source, input);

    const PatchResult made = makeBpsPatch(source, input);
    const PatchResult again = applyBpsPatch(source, made.bytes);
    if (!again.ok()
        || !std::equal(input.begin(), input.end(), again.bytes.begin(), again.bytes.end()))
        std::abort();
    return 0;
}

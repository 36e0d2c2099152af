#include "patch/ips_patch.h"

#include <cstdlib>

// Any records either give a file or a reason, and a patch made of that file gives it again. The
// input is what follows the magic.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace velko;
    const std::vector<std::uint8_t> source(300, 0x5A);
    std::vector<std::uint8_t> patch(kIpsMagic.begin(), kIpsMagic.end());
    patch.insert(patch.end(), data, data + size);
    const PatchResult result = applyIpsPatch(source, patch);
    if (result.ok() != result.reason.empty() || (!result.ok() && !result.bytes.empty())
        || result.bytes.size() > kIpsLargestFile + kIpsLargestRecord)
        std::abort();
    // Larger ones are as good, but slow.
    constexpr std::size_t kMadeAgain = 0x20000;
    if (!result.ok() || result.bytes.size() > kMadeAgain)
        return 0;
    const PatchResult made = makeIpsPatch(source, result.bytes);
    if (applyIpsPatch(source, made.bytes).bytes != result.bytes)
        std::abort();
    return 0;
}

#include "check/rom_check.h"
#include "tests/fuzz/demo_overlay.h"

#include <algorithm>

namespace {

using namespace velko;
using namespace velko::fuzz;

constexpr std::uint32_t kOverlay = 1; // flag of the input

// What is bounded by the tables of the demo's module: seven regions of 113 entries, those of 15
// areas and 12 truck patterns, 111 rooms with four entrances, four exits and up to 255 unit types.
constexpr std::size_t kMostFindings = 40'000;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    sharedDemo();
    return 0;
}

// Whatever a ROM holds, checking it ends, with findings that make sense, and changes nothing. The
// input is one byte of flags, three bytes of offset, then the bytes: the whole file, or a piece
// that is laid over the demo's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Demo& demo = sharedDemo();
    EditorState& state = demo.state;
    Input input({data, size});
    const std::uint32_t flags = input.number(1);
    const std::uint32_t offset = input.number(3) & 0x3FFFF;
    const std::vector<std::uint8_t> rom =
        romFrom(demo, (flags & kOverlay) != 0, offset, input.rest());
    state.rom.setBytes(rom);
    state.prepareRoomData();

    const Findings findings = checkRom(state);
    require(findings.size() < kMostFindings);
    require(std::ranges::is_sorted(findings, {}, &Finding::kind));
    for (const Finding& finding : findings) {
        require(finding.text.size() > 1 && finding.text.back() == '.');
        require(!finding.room || !finding.area);
    }
    require(std::ranges::equal(state.rom.bytes(), rom));
    return 0;
}

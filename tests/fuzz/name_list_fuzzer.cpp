#include "rom/name_lists.h"
#include "rom/number_text.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

// What entry `index` must be, found by cutting the text at its line feeds.
std::string expectedName(std::string_view text, std::size_t index)
{
    for (std::size_t line = 0; line < index; ++line) {
        const auto lineFeed = text.find('\n');
        if (lineFeed == text.npos)
            return velko::hexText(static_cast<std::uint32_t>(index)) + " : ??";
        text.remove_prefix(lineFeed + 1);
    }
    const auto lineFeed = text.find('\n');
    std::string name(text.substr(0, lineFeed));
    if (lineFeed != text.npos && !name.empty() && name.back() == '\r')
        name.pop_back();
    return name;
}

} // namespace

// Any bytes as a list of names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> names(40, "untouched");
    velko::splitNameList(text, names, " : ??");
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] != expectedName(text, i))
            std::abort();
    }
    return 0;
}

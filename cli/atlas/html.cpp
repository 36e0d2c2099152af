#include "cli/atlas/html.h"

#include "rom/number_text.h"
#include "rom/utf8.h"

namespace velko {

std::string escapeHtml(std::string_view text)
{
    constexpr std::string_view kMarkup = "<>&\"'";
    std::string html;
    for (const char32_t character : charactersOf(text)) {
        const bool isAscii = character < 0x7F;
        // References to the C1 control characters are errors in HTML.
        if (character < 0x20 || (character >= 0x7F && character < 0xA0))
            html += ' ';
        else if (!isAscii || kMarkup.find(static_cast<char>(character)) != kMarkup.npos)
            html += "&#x" + hexText(character) + ";";
        else
            html += static_cast<char>(character);
    }
    return html;
}

} // namespace velko

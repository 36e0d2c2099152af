#pragma once

#include "cli/atlas/atlas_data.h"

#include <string>
#include <string_view>

namespace velko {

// Pieces that the pages of an atlas share. All results are HTML.

enum class AtlasPage { kIndex, kGraph, kRoom };

// A whole page. `turn` is a room page's links to its neighbours.
std::string wholePage(const AtlasData& atlas, AtlasPage page, std::string_view title,
                      std::string_view turn, std::string_view main);

// ` name="value"`, for numbers.
std::string attribute(std::string_view name, long long value);
// A link that shows a room's picture, number and name.
std::string roomCard(const AtlasRoom& room);
// "1f Meadow, the brook"; "Room 1f" of a room without a name.
std::string roomTitle(const AtlasRoom& room);
// "Room 1f: Meadow, the brook", or "Room 1f".
std::string roomHeading(const AtlasRoom& room);

// A frame with a name on a picture, in the picture's pixels.
struct Mark {
    std::string id;
    std::string kind; // class of the style sheet besides "mark"
    std::string name; // plain text
    int x = 0;        // the frame's corner
    int y = 0;
    int size = 16;
    bool nameBelow = false; // so that names of two kinds seldom cover one another
};
// A picture `scale` times as large as its file, with marks on it that can be switched off.
struct MarkedPicture {
    std::string file;
    std::string description; // plain text
    std::uint32_t width = 0; // of the file
    std::uint32_t height = 0;
    std::uint32_t scale = 1;
    std::vector<Mark> marks;
};
std::string markedPicture(const MarkedPicture& picture);

} // namespace velko

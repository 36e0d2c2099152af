#pragma once

#include <QFont>

namespace velko {

// A font of the default family whose lines are `height` logical pixels high and whose letters are
// `width` wide on average. `weight`: 100 to 900, 400 is regular.
QFont makeFont(int height, int width, int weight);

// The three fonts that the pages share.
struct SharedFonts {
    QFont font1 = makeFont(16, 10, 350);
    QFont font2 = makeFont(14, 6, 700);
    QFont font3 = makeFont(15, 7, 500);
};

} // namespace velko

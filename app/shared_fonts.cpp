#include "app/shared_fonts.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <algorithm>

namespace velko {

QFont makeFont(int height, int width, int weight)
{
    QFont font = QGuiApplication::font();
    font.setWeight(static_cast<QFont::Weight>(weight));
    // Lines are higher than letters by what each family leaves between them.
    int pixels = height;
    font.setPixelSize(pixels);
    while (pixels > 1 && QFontMetrics(font).height() > height)
        font.setPixelSize(--pixels);
    const int natural = std::max(1, QFontMetrics(font).averageCharWidth());
    font.setStretch(std::clamp(100 * width / natural, 50, 200));
    return font;
}

} // namespace velko

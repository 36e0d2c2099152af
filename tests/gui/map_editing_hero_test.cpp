#include "tests/gui/map_editing_fixture.h"

#include <QApplication>
#include <algorithm>

namespace velko::test::map_editing {
namespace {

// The hero

class HeroTest : public MapEditingPageTest {
protected:
    HeroTest()
    {
        // All sprite tiles are of value 1, entry 17.
        for (std::size_t i = 0; i < kPatternTable1; ++i)
            state.graphics.patternMemory[i] = i % 16 < 8 ? 0xFF : 0x00;
    }

    // The line to the hero starts 60 pixels above and left of the mouse.
    static constexpr QPoint kMouse{100, 100};
    static constexpr QPoint kLine{44, 43};
    Pixel linePixel() const { return shownAt(kLine); }
};

TEST_F(HeroTest, HeroStandsAtTheMouseWhileShiftIsHeld)
{
    checkHero();
    moveTo(onMap(kMouse), Qt::NoButton);
    EXPECT_EQ(linePixel(), colour(16));
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(17));
    moveTo(onMap(kMouse + QPoint(40, 0)), Qt::NoButton);
    EXPECT_EQ(linePixel(), colour(16));
    EXPECT_EQ(shownAt(kLine + QPoint(40, 0)), colour(17));
    page->shiftKey(false);
    EXPECT_EQ(shownAt(kLine + QPoint(40, 0)), colour(16));
}

TEST_F(HeroTest, HeroNeedsTheBox)
{
    moveTo(onMap(kMouse), Qt::NoButton);
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(16));
    checkHero();
    EXPECT_EQ(linePixel(), colour(16)); // the key went down before
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(17));
    checkHero();
    EXPECT_EQ(linePixel(), colour(16));
}

TEST_F(HeroTest, NothingIsDrawnWhileAToolShowsOtherRooms)
{
    checkHero();
    moveTo(onMap(kMouse), Qt::NoButton);
    page->pause();
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(16));
    page->resume();
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(17));
    page->pause();
    EXPECT_EQ(linePixel(), colour(16));
    page->refresh();
    std::fill_n(state.graphics.patternMemory.begin(), kPatternTable1, 0xFF);
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(19));
}

TEST_F(HeroTest, HeroIsInNoCellOfTheMap)
{
    checkHero();
    page->shiftKey(true);
    moveTo(onMap(kMouse), Qt::NoButton);
    EXPECT_EQ(image(), game.bytes);
    page->commitEdits(); // nothing to ask
}

TEST_F(HeroTest, HeroGoesWithTheWindowsFocus)
{
    checkHero();
    moveTo(onMap(kMouse), Qt::NoButton);
    page->shiftKey(true);
    QEvent deactivated(QEvent::WindowDeactivate);
    QApplication::sendEvent(page.get(), &deactivated);
    EXPECT_EQ(linePixel(), colour(16));
}

TEST_F(HeroTest, HeroMovesAlongWhilePainting)
{
    checkHero();
    page->shiftKey(true);
    clickTile(2);
    moveTo(onMap(kCell), Qt::NoButton);
    press(kCell);
    moveTo(onMap({100, 248}), Qt::LeftButton);
    EXPECT_EQ(shownAt({44, 191}), colour(17));
    page->shiftKey(false);
    EXPECT_EQ(shownAt({100, 248}), colour(10));
}

} // namespace
} // namespace velko::test::map_editing

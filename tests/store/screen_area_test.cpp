#include "store/screen_area.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

constexpr ScreenArea kArea{0x8600, 272};

TEST(ScreenArea, IndexCountsScreensOf64Bytes)
{
    EXPECT_EQ(kArea.indexOf(0x8600), 0U);
    EXPECT_EQ(kArea.indexOf(0x863F), 0U);
    EXPECT_EQ(kArea.indexOf(0x8640), 1U);
    EXPECT_EQ(kArea.indexOf(0xC7C0), 263U);
}

TEST(ScreenArea, AddressesBelowTheAreaAreScreenZero)
{
    EXPECT_EQ(kArea.indexOf(0x85FF), 0U);
    EXPECT_EQ(kArea.indexOf(0), 0U);
}

TEST(ScreenArea, HoleOf8BytesLiesBehindScreen263)
{
    EXPECT_EQ(kArea.addressOf(263), 0xC7C0);
    EXPECT_EQ(kArea.addressOf(264), 0xC808);
    EXPECT_EQ(kArea.indexOf(0xC808), 264U);
    EXPECT_EQ(kArea.indexOf(0xC800), 264U);
    EXPECT_EQ(kArea.indexOf(0xC801), 263U); // the hole's own bytes count as what lies below
    EXPECT_EQ(kArea.addressOf(265), 0xC848);
    EXPECT_EQ(kArea.indexOf(0xC848), 265U);
}

TEST(ScreenArea, IndexIsNotBoundedByTheNumberOfScreens)
{
    EXPECT_EQ(kArea.indexOf(0xFFFE), 487U); // ($FFFE - 8 - $8600) / 64
    EXPECT_EQ((ScreenArea{0, 1}.indexOf(0xC7FF)), 799U);
    EXPECT_EQ((ScreenArea{0, 1}.indexOf(0xFFFF)), 1023U);
}

TEST(ScreenArea, EveryIndexOfTheAreaComesBack)
{
    for (std::uint32_t index = 0; index < kArea.count; ++index)
        EXPECT_EQ(kArea.indexOf(kArea.addressOf(index)), index);
}

TEST(ScreenArea, AbsurdStartsAreSurvived)
{
    EXPECT_EQ((ScreenArea{0xC805, 4}.indexOf(0xC806)), 0U);
    EXPECT_EQ((ScreenArea{0xFFFFFFFF, 4}.indexOf(0xFFFF)), 0U);
    EXPECT_EQ((ScreenArea{0x10000, 4}.indexOf(0xFFFF)), 0U);
    EXPECT_EQ((ScreenArea{0xFFFFFFFF, 4}.addressOf(1)), 0x003F);
    EXPECT_EQ((ScreenArea{0x8600, 4}.addressOf(0xFFFFFFFF)), 0x85C8);
}

} // namespace
} // namespace velko

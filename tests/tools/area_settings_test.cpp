#include "tools/area_settings.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

constexpr std::uint32_t kParachutes = 0x20;
constexpr std::uint32_t kEndItems = 0x40;

// Five areas, the fourth (number 3) the first neutral one; everything is 0.
class AreaSettingsTest : public testing::Test {
protected:
    AreaSettingsTest()
    {
        state.rom.setBytes(std::vector<std::uint8_t>(0x60));
        state.config.setValue(MiscField::areas, 5);
        state.config.setValue(MiscField::firstNeutralArea, 3);
        state.config.setValue(MiscField::ptrAreaParachute, kParachutes);
        state.config.setValue(MiscField::ptrAreaEndItem, kEndItems);
    }

    EditorState state;
    AreaSettings settings{state};
};

TEST_F(AreaSettingsTest, ParachuteIsTheAreasByte)
{
    state.rom.writeByte(kParachutes + 2, 1);
    EXPECT_FALSE(settings.parachute());
    settings.selectArea(2);
    EXPECT_TRUE(settings.parachute());
    settings.setParachute(false);
    EXPECT_EQ(state.rom.readByte(kParachutes + 2), 0);
    settings.selectArea(4);
    settings.setParachute(true);
    EXPECT_EQ(state.rom.readByte(kParachutes + 4), 1);
}

TEST_F(AreaSettingsTest, AnyByteButZeroIsAParachute)
{
    state.rom.writeByte(kParachutes, 0x80);
    EXPECT_TRUE(settings.parachute());
    EXPECT_EQ(state.rom.readByte(kParachutes), 0x80) << "looking changes nothing";
}

TEST_F(AreaSettingsTest, ClearItemIsTheAreasByte)
{
    state.rom.writeByte(kEndItems + 1, 25);
    settings.selectArea(1);
    EXPECT_EQ(settings.clearItem(), 25);
    settings.setClearItem(7);
    EXPECT_EQ(state.rom.readByte(kEndItems + 1), 7);
    EXPECT_EQ(settings.clearItem(), 7);
    EXPECT_EQ(state.rom.readByte(kEndItems), 0) << "the area before";
    EXPECT_EQ(state.rom.readByte(kEndItems + 2), 0) << "the area behind";
}

TEST_F(AreaSettingsTest, BytesFrom26OnAreNoItems)
{
    for (const int value : {26, 0x7F, 0xFF}) {
        state.rom.writeByte(kEndItems, static_cast<std::uint8_t>(value));
        EXPECT_EQ(settings.clearItem(), std::nullopt) << value;
    }
}

TEST_F(AreaSettingsTest, TheAreaBeforeTheNeutralOnesHasNoClearItemEither)
{
    struct Row {
        std::uint32_t area;
        bool hasItem;
    };
    for (const Row& row :
         {Row{0, true}, Row{1, true}, Row{2, false}, Row{3, false}, Row{4, false}}) {
        settings.selectArea(row.area);
        EXPECT_EQ(settings.hasClearItem(), row.hasItem) << "area " << row.area;
    }
}

TEST_F(AreaSettingsTest, WithNeutralAreasFromTheStartNoAreaHasAClearItem)
{
    state.config.setValue(MiscField::firstNeutralArea, 0);
    EXPECT_FALSE(settings.hasClearItem());
}

TEST_F(AreaSettingsTest, NumberOfAreasIsKeptWithinBounds)
{
    EXPECT_EQ(settings.lastArea(), 4U);
    state.config.setValue(MiscField::areas, 0);
    EXPECT_EQ(settings.lastArea(), 0U);
    state.config.setValue(MiscField::areas, 0xFFFFFFFF);
    EXPECT_EQ(settings.lastArea(), 0xFFFFU);
}

TEST_F(AreaSettingsTest, TablesPastTheFileReadAsFillerAndDropWrites)
{
    state.config.setValue(MiscField::ptrAreaParachute, 0xFFFFFFFF);
    state.config.setValue(MiscField::ptrAreaEndItem, 0x60);
    EXPECT_TRUE(settings.parachute());
    EXPECT_EQ(settings.clearItem(), std::nullopt); // $55
    const std::vector<std::uint8_t> before(state.rom.bytes().begin(), state.rom.bytes().end());
    settings.setParachute(false);
    settings.setClearItem(3);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), state.rom.bytes().begin()));
    EXPECT_EQ(state.rom.size(), 0x60U);
}

} // namespace
} // namespace velko

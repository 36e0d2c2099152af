#include "pages/room_settings_model.h"

#include "tests/pages/room_settings_rom.h"

namespace velko {
namespace {

using test::Bytes;

class RoomSettingsModelTest : public test::RoomSettingsTest {
protected:
    void select(std::uint8_t room) { state.graphics.selectRoom(room); }

    RoomSettingsModel model{state};
};

TEST_F(RoomSettingsModelTest, MusicIsTheRoomsByte)
{
    EXPECT_EQ(model.music(), 100);
    select(47);
    EXPECT_EQ(model.music(), 147);
    model.setMusic(255);
    EXPECT_EQ(model.music(), 255);
    EXPECT_EQ(image(), loadedExcept(0x382F, {255}));
}

TEST_F(RoomSettingsModelTest, TitleNamesTheChambersInDecimal)
{
    EXPECT_EQ(model.chamberTitle(), " Neutral Area Item (only for rooms 37 to 44)");
    state.config.setValue(MiscField::areaFirstNAchamber, 0);
    state.config.setValue(MiscField::areaLastNAchamber, 0xFFFFFFFF);
    EXPECT_EQ(model.chamberTitle(), " Neutral Area Item (only for rooms 0 to 4294967295)");
}

TEST_F(RoomSettingsModelTest, FirstAndLastChamberAreChambers)
{
    const struct {
        std::uint8_t room;
        bool chamber;
    } rows[] = {{0, false}, {36, false}, {37, true}, {44, true}, {45, false}, {255, false}};
    for (const auto& row : rows) {
        select(row.room);
        EXPECT_EQ(model.isChamber(), row.chamber) << int{row.room};
    }
}

TEST_F(RoomSettingsModelTest, EachChamberHasItsItemAndAddress)
{
    const struct {
        std::uint8_t room;
        std::uint8_t item;
        bool listed;
        std::uint16_t address;
    } rows[] = {{37, 7, true, 0xB0C1},
                {40, 0xFF, false, 0xFFFF},
                {41, 26, false, 0x5678},
                {44, 25, true, 0x1234}};
    for (const auto& row : rows) {
        select(row.room);
        EXPECT_EQ(model.item(), row.item) << int{row.room};
        EXPECT_EQ(model.hasItem(), row.item != 0xFF) << int{row.room};
        EXPECT_EQ(model.listedItem().has_value(), row.listed) << int{row.room};
        EXPECT_EQ(model.spriteAddress(), row.address) << int{row.room};
    }
    EXPECT_EQ(model.listedItem(), 25);
}

TEST_F(RoomSettingsModelTest, AddedItemIsAlwaysTheSame)
{
    for (const std::uint8_t room : {kEmpty, kLast, kUnlisted}) {
        load();
        select(room);
        model.addItem();
        Bytes expected = loadedExcept(0x3900U + room - 37U, {4});
        expected[0x3A00U + 2U * (room - 37U)] = 0x06;
        expected[0x3A01U + 2U * (room - 37U)] = 0xAB;
        EXPECT_EQ(image(), expected) << int{room};
    }
}

TEST_F(RoomSettingsModelTest, RemovedItemLeavesNoAddress)
{
    select(kLast);
    model.removeItem();
    EXPECT_FALSE(model.hasItem());
    Bytes expected = loadedExcept(0x3907, {0xFF});
    expected[0x3A0E] = 0xFF;
    expected[0x3A0F] = 0xFF;
    EXPECT_EQ(image(), expected);
}

TEST_F(RoomSettingsModelTest, OtherItemKeepsTheAddress)
{
    select(kFirst);
    model.setItem(9);
    EXPECT_EQ(model.spriteAddress(), 0xB0C1);
    EXPECT_EQ(image(), loadedExcept(0x3900, {9}));
    model.takeItemAddress();
    EXPECT_EQ(byteAt(0x3A00), 0x09);
    EXPECT_EQ(byteAt(0x3A01), 0x90);
}

TEST_F(RoomSettingsModelTest, OnlyLowWordOfAnAddressIsStored)
{
    select(kLast);
    model.setSpriteAddress(0xABCD6789);
    EXPECT_EQ(image(), loadedExcept(0x3A0E, {0x89, 0x67}));
}

TEST_F(RoomSettingsModelTest, AddressWithoutAnItemIsFfff)
{
    select(kEmpty);
    model.setSpriteAddress(0x8000);
    EXPECT_EQ(model.spriteAddress(), 0x8000);
    model.takeItemAddress();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(RoomSettingsModelTest, ItemPastTheListHasNoAddressToTake)
{
    for (const std::uint8_t item : {std::uint8_t{26}, std::uint8_t{144}, std::uint8_t{0xFE}}) {
        select(kUnlisted);
        model.setItem(item);
        model.takeItemAddress();
        EXPECT_EQ(model.item(), item);
        EXPECT_EQ(model.spriteAddress(), 0x5678) << int{item};
    }
}

TEST_F(RoomSettingsModelTest, LastItemOfTheListHasAnAddress)
{
    select(kLast);
    model.takeItemAddress();
    EXPECT_EQ(model.spriteAddress(), 0x9019);
}

TEST_F(RoomSettingsModelTest, ModuleThatTellsNoAddressGivesZero)
{
    state.config.itemInGameSpriteAddress[25] = 0;
    select(kLast);
    model.takeItemAddress();
    EXPECT_EQ(model.spriteAddress(), 0);
}

TEST_F(RoomSettingsModelTest, OtherRoomsHaveNoItemAndTakeNone)
{
    for (const std::uint8_t room : {std::uint8_t{36}, std::uint8_t{45}}) {
        select(room);
        model.addItem();
        model.setItem(3);
        model.setSpriteAddress(0x8000);
        model.takeItemAddress();
        model.removeItem();
        EXPECT_FALSE(model.hasItem());
        EXPECT_EQ(model.spriteAddress(), 0xFFFF);
    }
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(RoomSettingsModelTest, NoRoomIsAChamberWhenTheFirstLiesBehindTheLast)
{
    state.config.setValue(MiscField::areaFirstNAchamber, 44);
    state.config.setValue(MiscField::areaLastNAchamber, 37);
    for (const std::uint8_t room : {kFirst, kEmpty, kLast}) {
        select(room);
        EXPECT_FALSE(model.isChamber()) << int{room};
    }
}

TEST_F(RoomSettingsModelTest, EveryRoomMayBeAChamber)
{
    state.config.setValue(MiscField::areaFirstNAchamber, 0);
    state.config.setValue(MiscField::areaLastNAchamber, 0xFFFFFFFF);
    select(255);
    model.setItem(3);
    model.setSpriteAddress(0x8001);
    Bytes expected = loadedExcept(0x39FF, {3});
    expected[0x3BFE] = 0x01;
    expected[0x3BFF] = 0x80;
    EXPECT_EQ(image(), expected);
}

TEST_F(RoomSettingsModelTest, TablesPastTheFileReadAsFillerAndTakeNothing)
{
    state.config.setValue(MiscField::ptrRoomMusic, 0xFFFFFF00);
    state.config.setValue(MiscField::ptrNA_ChamberItem, 0x01000000);
    state.config.setValue(MiscField::ptrNA_ChItemAddress, 0x7FFFFFFF);
    select(kFirst);
    EXPECT_EQ(model.music(), 0x55);
    EXPECT_EQ(model.item(), 0x55);
    EXPECT_EQ(model.spriteAddress(), 0x5555);
    model.setMusic(1);
    model.addItem();
    model.removeItem();
    model.takeItemAddress();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(RoomSettingsModelTest, AddressHalfPastTheFileTakesItsLowByte)
{
    state.config.setValue(MiscField::ptrNA_ChItemAddress, state.rom.size() - 1);
    select(kFirst);
    model.setSpriteAddress(0x1234);
    EXPECT_EQ(model.spriteAddress(), 0x5534);
    EXPECT_EQ(image(), loadedExcept(state.rom.size() - 1, {0x34}));
}

} // namespace
} // namespace velko

#include "demo/generator.h"
#include "demo/nes_palette.h"
#include "demo/picture_writer.h"
#include "rom/file_io.h"
#include "rom/module_config.h"
#include "tests/demo/demo_game.h"
#include "tests/support/temporary_folder.h"

#include <set>
#include <string>

namespace velko::test {
namespace {

Bytes fileBytes(const std::filesystem::path& path)
{
    return loadFile(path).value_or(Bytes{});
}

std::set<std::string> filesBelow(const std::filesystem::path& folder)
{
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.insert(entry.path().lexically_relative(folder).generic_string());
    return files;
}

TEST(DemoFiles, RomIsMapper2With256KBAndTilesInRam)
{
    const Bytes rom = fileBytes(demoFolder() / "demo.nes");
    ASSERT_EQ(rom.size(), 16U + 16U * 16384U);
    EXPECT_EQ(Bytes(rom.begin(), rom.begin() + 4), (Bytes{'N', 'E', 'S', 0x1A}));
    EXPECT_EQ(rom[4], 16); // program banks
    EXPECT_EQ(rom[5], 0);  // no tile banks: RAM
    EXPECT_EQ(rom[6] >> 4, 2);
    EXPECT_EQ(rom[7], 0);
}

TEST(DemoFiles, ModuleFolderHoldsTheTableAndFiveLists)
{
    const auto folder = readModuleConfig(demoFolder());
    ASSERT_TRUE(folder.has_value());
    EXPECT_EQ(filesBelow(*folder),
              (std::set<std::string>{"VRAMload.txt", "data.yaml", "item.txt", "music.txt",
                                     "roomlist.txt", "unit.txt"}));
}

TEST(DemoFiles, SecondGenerationWritesTheSameBytes)
{
    const TemporaryFolder folder;
    demo::generateDemo(VELKO_DEMO_SOURCES, VELKO_DEMO_PROGRAM, folder.path());
    const std::set<std::string> files = filesBelow(folder.path());
    EXPECT_EQ(files, filesBelow(demoFolder()));
    EXPECT_EQ(files.size(), 29U);
    for (const std::string& file : files)
        EXPECT_EQ(fileBytes(folder.path() / file), fileBytes(demoFolder() / file)) << file;
}

TEST(DemoFiles, EveryKeyOfTheTableIsUsed)
{
    const Bytes bytes = fileBytes(*readModuleConfig(demoFolder()) / "data.yaml");
    const std::string text(bytes.begin(), bytes.end());
    for (const char* key : {"levelPointerArrayHandlers",
                            "otherPointerArrayHandlers",
                            "pointerHandlersBanks",
                            "miscData",
                            "unitSpriteReg",
                            "unitSpriteAddress",
                            "gameMapTileChunks",
                            "itemInGameSpriteAddress",
                            "pahMapAlloc",
                            "pahTileLoad",
                            "pahPal",
                            "pahMapLayout",
                            "pahTile32",
                            "pahUnit",
                            "pahTileLoadType2",
                            "pahMapAreaMovement",
                            "pBank",
                            "pMemStart",
                            "pMemEdge",
                            "dEdge",
                            "dBank",
                            "pointerPad",
                            "phSprite",
                            "phMapScreenData",
                            "startGfxBg",
                            "bgTileBanks",
                            "startGfxType2",
                            "mapAllocDataStart",
                            "rooms",
                            "mapIndexes",
                            "mapPtrStart",
                            "ptrEntranceScreen",
                            "ptrEntranceBlock",
                            "ptrExitRoom",
                            "ptrExitEntrance",
                            "roomEntrances",
                            "roomExits",
                            "ptrTileLoadType2",
                            "ptrRoomMusic",
                            "areas",
                            "firstNeutralArea",
                            "ptrAreaEndItem",
                            "ptrAreaParachute",
                            "areaFirstNAchamber",
                            "areaLastNAchamber",
                            "ptrNA_ChamberItem",
                            "ptrNA_ChItemAddress",
                            "ptrMapAreaXY",
                            "ptrMapTruckInit",
                            "numOfMapTrucks",
                            "ptrMapPalette",
                            "ptrMapTileMap",
                            "ptrMapPathPreviewSpriteAddr",
                            "ptrMapQuadSpriteTable",
                            "ptrMapAttributeTable",
                            "bpahTruckMovement_bank",
                            "bpahTruckMovement_dMemStart",
                            "bpahTruckMovement_dMemEdge",
                            "bpahTruckMovement_pMemStart",
                            "bpahTruckMovement_pMemEdge"})
        EXPECT_NE(text.find(std::string(key) + ":"), std::string::npos) << key;
    EXPECT_NE(text.find("# "), std::string::npos);
}

TEST(DemoFiles, BitmapsAreOfBothDepths)
{
    int depths[25] = {};
    for (int value = 0; value < 16; ++value)
        ++depths[fileBytes(demoFolder() / "bitmap" / (std::to_string(value) + ".bmp")).at(28)];
    EXPECT_EQ(depths[8], 8);
    EXPECT_EQ(depths[24], 8);
    EXPECT_EQ(fileBytes(demoFolder() / "bitmap" / "door1.bmp").at(28), 8);
    EXPECT_EQ(fileBytes(demoFolder() / "bitmap" / "door2.bmp").at(28), 24);
}

TEST(DemoFiles, PhysicsPictureIsAPictogramInTheMiddleOfAPlate)
{
    const demo::Picture plate = demo::physicsPlate({"one",
                                                    4,
                                                    3,
                                                    {0, 1, 2, 3, //
                                                     4, 5, 6, 7, //
                                                     8, 9, 10, 11}});
    EXPECT_EQ(plate.width, 248);
    EXPECT_EQ(plate.height, 71);
    EXPECT_EQ(plate.at(120, 32), 0); // doubled: 8 x 6 pixels from here on
    EXPECT_EQ(plate.at(121, 33), 0);
    EXPECT_EQ(plate.at(122, 34), 5);
    EXPECT_EQ(plate.at(127, 37), 11);
    for (const auto& [x, y] : {std::pair{119, 32}, {120, 31}, {128, 37}, {127, 38}, {2, 2}})
        EXPECT_EQ(plate.at(x, y), 4) << x << ", " << y;
    for (const auto& [x, y] : {std::pair{0, 0}, {1, 1}, {247, 70}, {246, 35}, {100, 69}})
        EXPECT_EQ(plate.at(x, y), 1) << x << ", " << y;
}

TEST(DemoFiles, PaletteFollowsItsFormula)
{
    const auto colours = demo::nesPalette();
    EXPECT_EQ(colours[0x0F], (demo::Rgb{0, 0, 0}));
    EXPECT_EQ(colours[0x0E], (demo::Rgb{0, 0, 0}));
    EXPECT_EQ(colours[0x1D], (demo::Rgb{0, 0, 0}));
    EXPECT_EQ(colours[0x00], (demo::Rgb{102, 102, 102})); // 0.40 x 255
    EXPECT_EQ(colours[0x10], (demo::Rgb{171, 171, 171})); // 0.67 x 255
    EXPECT_EQ(colours[0x20], (demo::Rgb{255, 255, 255}));
    EXPECT_EQ(colours[0x2D], (demo::Rgb{66, 66, 66})); // 0.26 x 255
    // Hue 6 lies at 15 degrees: I = 0.26 x 0.9659 = 0.2511, Q = 0.26 x 0.2588 = 0.0673;
    // red 0.47 + 0.2401 + 0.0418 = 0.7519, green 0.47 - 0.0683 - 0.0435 = 0.3582,
    // blue 0.47 - 0.2778 + 0.1146 = 0.3068.
    EXPECT_EQ(colours[0x16], (demo::Rgb{192, 91, 78}));
}

class DemoLists : public DemoGame { };

TEST_F(DemoLists, NameTheGamesThings)
{
    EXPECT_EQ(state.names.units[0], "Snail, in no hurry");
    EXPECT_EQ(state.names.units[40], "Exit 1");
    EXPECT_EQ(state.names.units[143], "Spare unit 143");
    EXPECT_EQ(state.names.vramLoads[0], "Hero");
    EXPECT_EQ(state.names.vramLoads[200], "c8 : ?? ");
    EXPECT_EQ(state.names.music[0], "Silence");
    EXPECT_EQ(state.names.music[255], "ff : ??");
    ASSERT_EQ(state.names.rooms.size(), 111U);
    EXPECT_EQ(state.names.rooms[0], "Area 1: Clover Downs, the gate");
    EXPECT_EQ(state.names.rooms[110], "Area 2 Indoor: the mill seen crosswise");
    EXPECT_EQ(state.names.items[4], "Key");
    EXPECT_EQ(state.names.items[25], "Music box");
}

TEST_F(DemoLists, PicturesAreLoaded)
{
    for (const PixelImage& picture : state.resources.physicsBitmaps) {
        EXPECT_EQ(picture.width(), 141U); // 248 x 0.57, truncated: half of the selector's 282
        EXPECT_EQ(picture.height(), 40U); // 71 x 0.57, truncated: an eighth of its 322
    }
    for (const PixelImage& picture : state.resources.doorBitmaps)
        EXPECT_EQ(picture.width(), 16U);
}

} // namespace
} // namespace velko::test

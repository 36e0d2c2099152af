#include "demo/sprite_bank.h"
#include "demo/unit_types.h"
#include "demo/world_builder.h"

#include <algorithm>

namespace velko::demo {

namespace {

constexpr std::uint16_t kHeroTiles = 128;
constexpr std::uint16_t kHeroCapacity = 64;
constexpr std::uint8_t kSparkTile = 131;
constexpr std::uint16_t kItemTiles = 248; // an item's four tiles, whichever is loaded
constexpr std::uint8_t kStillTicks = 60;
// A sprite's position is 8 pixels above the ground that it stands on.
constexpr int kFeet = 8;

// The hero's tiles. The editor shows tile 128 and, six times, tile 131 on a diagonal that ends
// at the hero: the star and the light that it sheds.
TileGroup heroGroup(const Art& art)
{
    TileGroup group("Hero", kHeroTiles, kHeroCapacity);
    const Picture& star = spriteNamed(art.hero, "hero_light_end").picture;
    const Picture& spark = spriteNamed(art.hero, "hero_light_way").picture;
    const std::uint8_t starTile = group.addTile(encodeTile(star, 0, 0));
    group.addTile(Tile{});
    group.addTile(Tile{});
    if (starTile != kHeroTiles || group.addTile(encodeTile(spark, 0, 0)) != kSparkTile)
        throw DemoError("the hero's light must be tiles 128 and 131");
    return group;
}

Frame standingFrame(TileGroup& group, const SpriteArt& sprite)
{
    return group.addPicture(sprite.picture, sprite.picture.width / 2, sprite.picture.height - kFeet,
                            sprite.colourSet);
}

Frame heroFrame(TileGroup& group, const Art& art, const char* name)
{
    return standingFrame(group, spriteNamed(art.hero, name));
}

// The script that the editor shows at $8171: standing, a glint, and at offset 42 the hero with
// the lantern held up to the left, where the light ends.
void putHeroScripts(SpriteBank& bank, TileGroup& group, const Art& art)
{
    const Frame stand = heroFrame(group, art, "hero_stand");
    const Frame blink = heroFrame(group, art, "hero_blink");
    const SpriteArt& lift = spriteNamed(art.hero, "hero_lift");
    const Frame raised =
        mirrored(group.addPicture(lift.picture, 9, lift.picture.height - kFeet, lift.colourSet));
    const Frame glint = {
        {kHeroTiles, -12, -17, 0}, {kSparkTile, -20, -25, 0}, {kSparkTile, -28, -33, 0}};
    bank.moveTo(kUnitScripts);
    const std::uint16_t idle = bank.addScript({{stand, 100}, {blink, 8}});
    const std::uint16_t resume = bank.position();
    bank.moveTo(kHeroScript);
    bank.addScript({{stand, kStillTicks}}, idle);
    bank.addFrame(glint, 8);
    if (bank.position() != kHeroScript + kHeroPreviewFrame)
        throw DemoError("the hero's raised lantern must begin at offset 42");
    bank.addScript({{raised, 120}}, kHeroScript);
    bank.moveTo(resume);

    const std::array<std::vector<const char*>, 4> moves = {
        {{"hero_walk_0", "hero_walk_1", "hero_walk_2", "hero_walk_3"},
         {"hero_jump"},
         {"hero_climb_0", "hero_climb_1"},
         {"hero_duck"}}};
    for (const auto& move : moves) {
        std::vector<TimedFrame> frames;
        for (const char* name : move)
            frames.push_back({heroFrame(group, art, name), 8});
        bank.addScript(frames);
    }
}

UnitType spriteUnit(SpriteBank& bank, TileGroup& group, const Art& art, const SpriteUnitPlan& plan)
{
    UnitType type;
    type.name = plan.name;
    type.key = plan.picture;
    type.spriteRegister = plan.frames > 1 ? 1 : 2;
    std::vector<TimedFrame> script;
    for (int i = 0; i < plan.frames; ++i) {
        std::string name(plan.picture);
        if (plan.frames > 1)
            name += "_" + std::to_string(i);
        type.frames.push_back(standingFrame(group, spriteNamed(art.creatures, name)));
        script.push_back({type.frames.back(), static_cast<std::uint8_t>(plan.ticks)});
    }
    type.script =
        plan.frames > 1 ? bank.addScript(script) : bank.addFrame(type.frames.front(), kStillTicks);
    return type;
}

void addUnitTypes(const Art& art, World& world, SpriteBank& bank)
{
    std::vector<TileGroup> groups;
    for (const SpriteGroupPlan& plan : kSpriteGroups)
        groups.emplace_back(std::string(plan.name), static_cast<std::uint16_t>(plan.firstTile),
                            static_cast<std::uint16_t>(plan.capacity));
    for (const SpriteUnitPlan& plan : kSpriteUnits) {
        const auto group = static_cast<std::size_t>(plan.group);
        world.unitTypes.push_back(spriteUnit(bank, groups[group], art, plan));
        world.unitTypes.back().load = plan.group; // becomes the record's number below
    }
    std::vector<int> records;
    for (const TileGroup& group : groups)
        records.push_back(storeGroup(world, group));
    for (UnitType& type : world.unitTypes)
        type.load = records[static_cast<std::size_t>(type.load)];
    world.commonLoads.push_back(static_cast<std::uint8_t>(records[kObjectsGroup]));

    for (const PlainUnitPlan& plan : kPlainUnits)
        world.unitTypes.push_back({std::string(plan.name), std::string(plan.key), 0, 0, -1, {}});
    while (world.unitTypes.size() < kUnitTypeCount)
        world.unitTypes.push_back(
            {"Spare unit " + std::to_string(world.unitTypes.size()), "", 0, 0, -1, {}});
}

// "item_17_letter" is called "letter".
std::string itemName(const std::string& picture)
{
    std::string name = picture.substr(picture.find('_', 5) + 1);
    std::replace(name.begin(), name.end(), '_', ' ');
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

// Every item has a record of its own, all to the same four tiles. The key's frame comes first, at
// the address that the editor gives to a new item.
void addItems(const Art& art, World& world, SpriteBank& bank)
{
    const auto& pictures = art.items.sprites;
    if (pictures.size() != kItemCount)
        throw DemoError("there must be 26 items");
    std::vector<Frame> frames;
    for (const SpriteArt& sprite : pictures) {
        TileGroup group("Item: " + itemName(sprite.picture.name), kItemTiles, 4);
        frames.push_back(standingFrame(group, sprite));
        storeGroup(world, group);
        world.items.push_back({itemName(sprite.picture.name), 0});
    }
    bank.moveTo(kDefaultItemFrame);
    world.items[kDefaultItem].frame = bank.addFrame(frames[kDefaultItem], kStillTicks);
    for (std::size_t i = 0; i < frames.size(); ++i)
        if (i != kDefaultItem)
            world.items[i].frame = bank.addFrame(frames[i], kStillTicks);
}

} // namespace

void buildSprites(const Art& art, World& world)
{
    world.spriteBank.assign(kBankBytes, 0xFF);
    SpriteBank bank(world.spriteBank, kHeroScript);
    TileGroup hero = heroGroup(art);
    putHeroScripts(bank, hero, art);
    world.commonLoads.push_back(storeGroup(world, hero));
    addUnitTypes(art, world, bank);
    addItems(art, world, bank);
}

} // namespace velko::demo

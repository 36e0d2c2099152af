#include "demo/sprite_bank.h"
#include "demo/world_builder.h"

namespace velko::demo {

namespace {

constexpr std::uint16_t kHeroTiles = 128;
constexpr std::uint16_t kSparkTile = 131;

// The hero's tiles. The editor shows tile 128 and, six times, tile 131 on a diagonal that ends
// at the hero: the star and the light that it sheds.
TileGroup heroGroup(const Art& art)
{
    TileGroup group("Hero", kHeroTiles, 96);
    const Picture& star = spriteNamed(art.hero, "hero_light_end").picture;
    const Picture& spark = spriteNamed(art.hero, "hero_light_way").picture;
    const std::uint8_t starTile = group.addTile(encodeTile(star, 0, 0));
    group.addTile(Tile{});
    group.addTile(Tile{});
    if (starTile != kHeroTiles || group.addTile(encodeTile(spark, 0, 0)) != kSparkTile)
        throw DemoError("the hero's light must be tiles 128 and 131");
    return group;
}

Frame heroFrame(TileGroup& group, const Art& art, const char* name)
{
    const SpriteArt& sprite = spriteNamed(art.hero, name);
    return group.addPicture(sprite.picture, 8, 17, sprite.colourSet);
}

// The script that the editor shows at $8171: standing, a glint, and at offset 42 the hero with
// the lantern held up to the left, where the light ends.
void putHeroScript(SpriteBank& bank, TileGroup& group, const Art& art)
{
    const Frame stand = heroFrame(group, art, "hero_stand");
    const Frame blink = heroFrame(group, art, "hero_blink");
    const SpriteArt& lift = spriteNamed(art.hero, "hero_lift");
    const Frame raised = mirrored(group.addPicture(lift.picture, 9, 17, lift.colourSet));
    const Frame glint = {{kHeroTiles, -12, -17, 0},
                         {static_cast<std::uint8_t>(kSparkTile), -20, -25, 0},
                         {static_cast<std::uint8_t>(kSparkTile), -28, -33, 0}};
    bank.moveTo(kUnitScripts);
    const std::uint16_t idle = bank.addScript({{stand, 100}, {blink, 8}});
    const std::uint16_t resume = bank.position();
    bank.moveTo(kHeroScript);
    bank.addScript({{stand, 60}}, idle);
    bank.addFrame(glint, 8);
    if (bank.position() != kHeroScript + kHeroPreviewFrame)
        throw DemoError("the hero's raised lantern must begin at offset 42");
    bank.addScript({{raised, 120}}, kHeroScript);
    bank.moveTo(resume);
}

} // namespace

void buildSprites(const Art& art, World& world)
{
    SpriteBank bank(world.spriteBank);
    TileGroup hero = heroGroup(art);
    putHeroScript(bank, hero, art);
    std::vector<TimedFrame> walk;
    for (const char* name : {"hero_walk_0", "hero_walk_1", "hero_walk_2", "hero_walk_3"})
        walk.push_back({heroFrame(hero, art, name), 8});
    const std::uint16_t walking = bank.addScript(walk);
    const std::uint16_t standing = bank.addFrame(heroFrame(hero, art, "hero_stand"), 60);

    for (std::uint32_t i = 0; i < kUnitTypeCount; ++i) {
        UnitType type{"Unit " + std::to_string(i), 0, 0};
        if (i < 40) {
            type.spriteRegister = i < 12 ? 1 : 2;
            type.script = i < 12 ? walking : standing;
        }
        world.unitTypes.push_back(type);
    }
    bank.moveTo(kDefaultItemFrame);
    for (std::uint32_t i = 0; i < kItemCount; ++i)
        world.items.push_back({"Item " + std::to_string(i),
                               i == 0 || i == kDefaultItem ? kDefaultItemFrame : standing});
    bank.addFrame(heroFrame(hero, art, "hero_duck"), 60);
    storeGroup(world, hero);
    world.overworldLoads = {0};
    world.titleLoads = {0};
}

} // namespace velko::demo

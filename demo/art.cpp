#include "demo/art.h"

namespace velko::demo {

namespace {

// PROVISIONAL: stands in for a file that is not drawn yet.
ArtFile loadOr(const std::filesystem::path& path, const ArtFile& other)
{
    return std::filesystem::exists(path) ? loadArt(path) : other;
}

ArtFile greySquares(int count, int size)
{
    ArtFile art;
    for (int i = 0; i < count; ++i) {
        Picture picture{"square", size, size, {}};
        for (int p = 0; p < size * size; ++p)
            picture.pixels.push_back(static_cast<std::uint8_t>(p % size * 16 / size));
        art.greyPictures.push_back(picture);
    }
    return art;
}

} // namespace

Art loadAllArt(const std::filesystem::path& folder)
{
    Art art;
    art.meadow = loadArt(folder / "meadow.txt");
    art.village = loadOr(folder / "village.txt", {});
    art.cave = loadOr(folder / "cave.txt", {});
    art.works = loadOr(folder / "works.txt", {});
    art.hero = loadArt(folder / "hero.txt");
    art.creatures = loadOr(folder / "creatures.txt", {});
    art.items = loadOr(folder / "items.txt", {});
    art.overworld = loadOr(folder / "overworld.txt", {});
    art.physics = loadOr(folder / "physics.txt", greySquares(16, 28));
    art.doors = loadOr(folder / "doors.txt", greySquares(4, 16));
    return art;
}

} // namespace velko::demo

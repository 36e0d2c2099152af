#include "demo/art_library.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace velko::demo {

namespace {

// Walks the lines of a text and words what is wrong with one.
class ArtParser {
public:
    explicit ArtParser(std::string_view text) : m_text(std::string(text))
    {
        for (std::uint32_t value = 0; value < 16; ++value)
            m_art.pictureColours[value] = value * 0x111111;
    }

    ArtFile parse()
    {
        std::string line;
        while (nextLine(line)) {
            if (line.starts_with("#@"))
                readHints(line);
            else if (!line.empty() && line[0] != '#')
                readEntry(line);
        }
        return std::move(m_art);
    }

private:
    [[noreturn]] void fail(const std::string& what) const
    {
        throw DemoError("line " + std::to_string(m_lineNumber) + ": " + what);
    }

    bool nextLine(std::string& line)
    {
        if (!std::getline(m_text, line))
            return false;
        ++m_lineNumber;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        return true;
    }

    void readHints(const std::string& line)
    {
        std::istringstream words(line.substr(2));
        std::string word;
        while (words >> word) {
            if (word.starts_with("palette="))
                m_palette = static_cast<std::uint8_t>(std::stoul(word.substr(8)));
            else if (word.starts_with("physics="))
                m_physics = static_cast<std::uint8_t>(std::stoul(word.substr(8)));
            else if (word.starts_with("set="))
                m_colourSet = static_cast<std::uint8_t>(std::stoul(word.substr(4)));
        }
        if (m_palette > 3 || m_physics > 15 || m_colourSet > 3)
            fail("palette, physics or set out of range");
    }

    void readEntry(const std::string& line)
    {
        std::istringstream words(line);
        std::string kind;
        std::string name;
        if (!(words >> kind >> name))
            fail("an entry needs a kind and a name");
        if (kind == "metatile") {
            m_art.metatiles.push_back({readRows(name, 16, 16, 3), m_palette, m_physics});
        } else if (kind == "tile") {
            m_art.tiles.push_back(readRows(name, 8, 8, 3));
        } else if (kind == "colour") {
            readColour(name, words);
        } else if (kind == "palette") {
            m_art.palettes.push_back(readPalette(name, words));
        } else if (kind == "sprite" || kind == "picture") {
            int width = 0;
            int height = 0;
            if (!(words >> width >> height) || width < 1 || height < 1 || width > 256)
                fail("no size for " + name);
            if (kind == "picture") {
                m_art.pictures.push_back(readRows(name, width, height, 15));
                return;
            }
            if (width % 8 != 0 || height % 8 != 0)
                fail("sprite sizes are multiples of 8: " + name);
            m_art.sprites.push_back({readRows(name, width, height, 3), m_colourSet});
        } else {
            fail("unknown entry " + kind);
        }
    }

    void readColour(const std::string& value, std::istringstream& words)
    {
        const std::size_t index = std::stoul(value, nullptr, 16);
        if (index > 15 || !(words >> std::hex >> m_art.pictureColours[index]))
            fail("a picture's colour needs a value up to f and RRGGBB");
    }

    ArtPalette readPalette(const std::string& name, std::istringstream& words)
    {
        ArtPalette palette{name, {}};
        for (std::uint8_t& colour : palette.colours) {
            unsigned value = 0;
            if (!(words >> std::hex >> value) || value > 0x3F)
                fail("a palette needs four colours up to 3f: " + name);
            colour = static_cast<std::uint8_t>(value);
        }
        return palette;
    }

    Picture readRows(const std::string& name, int width, int height, int highest)
    {
        Picture picture{name, width, height, {}};
        std::string line;
        for (int y = 0; y < height; ++y) {
            if (!nextLine(line) || static_cast<int>(line.size()) != width)
                fail("row " + std::to_string(y) + " of " + name + " has the wrong length");
            for (const char c : line)
                picture.pixels.push_back(pixelValue(c, highest));
        }
        return picture;
    }

    std::uint8_t pixelValue(char c, int highest) const
    {
        int value = -1;
        if (c == '.')
            value = 0;
        else if (c >= '0' && c <= '9')
            value = c - '0';
        else if (c >= 'a' && c <= 'f')
            value = c - 'a' + 10;
        if (value < 0 || value > highest)
            fail(std::string("no pixel value: ") + c);
        return static_cast<std::uint8_t>(value);
    }

    std::istringstream m_text;
    ArtFile m_art;
    int m_lineNumber = 0;
    std::uint8_t m_palette = 0;
    std::uint8_t m_physics = 0;
    std::uint8_t m_colourSet = 0;
};

} // namespace

ArtFile parseArt(std::string_view text)
{
    return ArtParser(text).parse();
}

std::string loadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw DemoError("cannot open " + path.filename().string());
    return {std::istreambuf_iterator<char>(file), {}};
}

ArtFile loadArt(const std::filesystem::path& path)
{
    const std::string text = loadText(path);
    try {
        return parseArt(text);
    } catch (const DemoError& error) {
        throw DemoError(path.filename().string() + ", " + error.what());
    }
}

const Metatile& metatileNamed(const ArtFile& art, std::string_view name)
{
    for (const Metatile& metatile : art.metatiles)
        if (metatile.picture.name == name)
            return metatile;
    throw DemoError("no metatile named " + std::string(name));
}

const SpriteArt& spriteNamed(const ArtFile& art, std::string_view name)
{
    for (const SpriteArt& sprite : art.sprites)
        if (sprite.picture.name == name)
            return sprite;
    throw DemoError("no sprite named " + std::string(name));
}

const ArtPalette& paletteNamed(const ArtFile& art, std::string_view name)
{
    for (const ArtPalette& palette : art.palettes)
        if (palette.name == name)
            return palette;
    throw DemoError("no palette named " + std::string(name));
}

std::uint8_t tileIndex(const ArtFile& art, std::string_view name)
{
    for (std::size_t i = 0; i < art.tiles.size() && i < 256; ++i)
        if (art.tiles[i].name == name)
            return static_cast<std::uint8_t>(i);
    throw DemoError("no tile named " + std::string(name));
}

} // namespace velko::demo

#include "app/editor_app.h"
#include "app/init_instance.h"
#include "app/message_boxes.h"
#include "rom/file_io.h"
#include "tests/gui/random_user.h"
#include "tests/support/temporary_folder.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko::test {
namespace {

namespace fs = std::filesystem;

using Bytes = std::vector<std::uint8_t>;

constexpr std::array<std::uint32_t, 16> kOddNumbers = {
    0,      1,      2,       16,         255,        256,        257,        0x7FFF,
    0x8000, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFE, 0xFFFFFFFF};

// Sanitizers, or a busy machine, take their time.
constexpr std::chrono::milliseconds kLongestWait(20'000);

// How often each case is used, and how long: VELKO_RANDOM_USE_ROUNDS and VELKO_RANDOM_USE_ACTIONS
// make for longer runs, VELKO_RANDOM_USE_SEED for other ones.
int setting(const char* name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

// The boxes of start-up, where nobody sits yet, are answered at once.
class RandomBoxes : public MessageBoxes {
public:
    explicit RandomBoxes(std::mt19937& random) : m_random(random) { }

    bool isStarting = true;

    void showMessage(std::string_view text, MessageIcon icon) override
    {
        if (!isStarting)
            MessageBoxes::showMessage(text, icon);
    }

protected:
    bool confirm(std::string_view text, std::string_view caption) override
    {
        return isStarting ? m_random() % 8 != 0 : MessageBoxes::confirm(text, caption);
    }

private:
    std::mt19937& m_random;
};

// Chooses among the files of a folder, or none.
class RandomChooser : public FileChooser {
public:
    RandomChooser(std::mt19937& random, fs::path folder)
        : m_random(random), m_folder(std::move(folder))
    {
    }

    std::optional<fs::path> chooseOpenFile(std::string_view, std::string_view) override
    {
        const auto choice = m_random() % 40;
        if (choice == 0)
            return m_folder / "missing.nes";
        return choice < 20 ? std::optional(m_folder / "game.nes") : std::nullopt;
    }
    std::optional<fs::path> chooseSaveFile(std::string_view, std::string_view,
                                           const fs::path&) override
    {
        const auto choice = m_random() % 3;
        return choice == 0 ? std::nullopt
                           : std::optional(m_folder / (choice == 1 ? "copy.nes" : "game.nes"));
    }

private:
    std::mt19937& m_random;
    fs::path m_folder;
};

// The demo game's folder, which the tests may damage, and somebody who opens the whole program
// there.
class RandomUse : public ::testing::Test {
protected:
    RandomUse()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        fs::copy(VELKO_DEMO_DIR, m_folder.path(), fs::copy_options::recursive);
        fs::rename(m_folder.path() / "demo.nes", m_folder.path() / "game.nes");
        fs::current_path(m_folder.path());
        rom = loadFile("game.nes").value();
        for (const auto& module : fs::directory_iterator("modules"))
            m_dataYaml = module.path() / "data.yaml";
        dataYaml = loadTextFile(m_dataYaml).value();
    }
    ~RandomUse() override
    {
        fs::current_path(m_before);
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
        QApplication::setStyle("fusion");
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    // Opens the program on these files and uses it.
    void use(const Bytes& image, const std::string& yaml, Habit habit)
    {
        saveFile("game.nes", image);
        saveFile(m_dataYaml,
                 std::span(reinterpret_cast<const std::uint8_t*>(yaml.data()), yaml.size()));
        RandomBoxes boxes(random);
        RandomChooser chooser(random, m_folder.path());
        RandomUser user(static_cast<unsigned>(random()), habit);
        EditorApp app({boxes, chooser, [&user](int) { user.stop(); }, {}});
        if (!app.initApplication(fs::path("game.nes")))
            return;
        boxes.isStarting = false;
        const RomImage& opened = app.state().rom;
        user.onActed = [&] {
            const bool ok = habit == Habit::kLooking
                ? std::ranges::equal(opened.bytes(), image)
                : opened.size() == image.size() || opened.size() == 0; // 0: nothing could be read
            EXPECT_TRUE(ok) << "the image has changed after:\n" << user.lastActions();
            if (!ok)
                user.stop();
        };
        {
            MainDialog window(app.state(), boxes);
            connectFileCommands(window, app);
            window.show();
            user.use(window, setting("VELKO_RANDOM_USE_ACTIONS", 200));
        }
        EXPECT_LT(user.longestWait().time.count(), kLongestWait.count())
            << user.longestWait().action;
        const auto saved = loadFile("game.nes").value_or(Bytes());
        EXPECT_EQ(saved.size(), image.size());
    }

    template <typename Round> void rounds(Round round)
    {
        const int first = setting("VELKO_RANDOM_USE_SEED", 1);
        for (int seed = first; seed < first + setting("VELKO_RANDOM_USE_ROUNDS", 1); ++seed) {
            SCOPED_TRACE(seed);
            random.seed(static_cast<unsigned>(seed));
            round();
            if (HasFailure())
                return;
        }
    }

    std::uint32_t below(std::size_t limit) { return static_cast<std::uint32_t>(random() % limit); }
    Bytes damagedRom()
    {
        Bytes damaged = rom;
        const std::uint32_t changes = 1 + below(4000);
        for (std::uint32_t i = 0; i < changes; ++i)
            damaged[below(damaged.size())] = static_cast<std::uint8_t>(random());
        // Whole stretches of one value: lists without an end, sizes of 0 and 255.
        for (int i = 0; i < 4; ++i) {
            const auto from = below(damaged.size() - 2000);
            const std::uint8_t value = std::array<std::uint8_t, 4>{
                0, 0xFF, 0x80, static_cast<std::uint8_t>(random())}[below(4)];
            std::fill_n(damaged.begin() + from, below(2000), value);
        }
        return damaged;
    }
    // Some of its numbers are others.
    std::string oddDataYaml()
    {
        const unsigned oneIn = std::array{2U, 10U, 100U}[below(3)];
        std::string odd;
        for (std::size_t i = 0; i < dataYaml.size(); ++i) {
            const bool startsNumber = std::isdigit(static_cast<unsigned char>(dataYaml[i])) != 0
                && (dataYaml[i - 1] == ' ' || dataYaml[i - 1] == '[');
            if (!startsNumber || below(oneIn) != 0) {
                odd += dataYaml[i];
                continue;
            }
            odd += std::to_string(below(3) == 0 ? below(0x40000)
                                                : kOddNumbers[below(kOddNumbers.size())]);
            while (i + 1 < dataYaml.size()
                   && std::isxdigit(static_cast<unsigned char>(dataYaml[i + 1]))
                           + (dataYaml[i + 1] == 'x')
                       != 0)
                ++i;
        }
        return odd;
    }

    // Names of any bytes, one of them far longer than a window is wide.
    void writeOddNames()
    {
        for (const char* list : {"unit", "VRAMload", "music", "roomlist", "item"}) {
            std::string names;
            for (std::uint32_t i = below(4000); i > 0; --i)
                names += static_cast<char>(random());
            names.insert(below(names.size() + 1), 20'000, static_cast<char>(random()));
            std::ofstream(m_dataYaml.parent_path() / (std::string(list) + ".txt"), std::ios::binary)
                << names;
        }
    }

    std::mt19937 random;
    Bytes rom;
    std::string dataYaml;

private:
    fs::path m_before = fs::current_path();
    TemporaryFolder m_folder;
    fs::path m_dataYaml;
    QFont m_font = QApplication::font();
    QPalette m_palette = QApplication::palette();
};

TEST_F(RandomUse, OfTheDemo)
{
    rounds([this] { use(rom, dataYaml, Habit::kEditing); });
}

TEST_F(RandomUse, LookingAtTheDemoChangesNothing)
{
    rounds([this] { use(rom, dataYaml, Habit::kLooking); });
}

TEST_F(RandomUse, OfADamagedRom)
{
    rounds([this] { use(damagedRom(), dataYaml, Habit::kEditing); });
}

TEST_F(RandomUse, OfACutRom)
{
    rounds([this] {
        Bytes cut = rom;
        cut.resize(1 + below(below(2) == 0 ? 40 : cut.size()));
        use(cut, dataYaml, Habit::kEditing);
    });
}

TEST_F(RandomUse, OfAnOddModule)
{
    rounds([this] { use(rom, oddDataYaml(), Habit::kEditing); });
}

TEST_F(RandomUse, OfOddNames)
{
    rounds([this] {
        writeOddNames();
        use(rom, dataYaml, Habit::kEditing);
    });
}

TEST_F(RandomUse, OfAnOddModuleAndADamagedRom)
{
    rounds([this] { use(damagedRom(), oddDataYaml(), Habit::kEditing); });
}

} // namespace
} // namespace velko::test

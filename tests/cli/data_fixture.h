#pragma once

#include "pages/data_management_model.h"
#include "tests/cli/cli_fixture.h"
#include "tests/cli/demo_state.h"

#include <array>
#include <functional>

namespace velko::test {

using Bytes = std::vector<std::uint8_t>;
using Change = std::function<void(DataManagementModel& model, RoomDataKind kind)>;

inline constexpr std::array<const char*, kRoomDataKinds> kKinds = {"alloc", "layout", "tile32",
                                                                   "tiles", "palette"};

// File offsets of the demo's tables.
inline constexpr std::size_t kPaletteTable = 0x2C010;
inline constexpr std::size_t kLayoutTable = 0x3D110; // four bytes per entry

// Somebody who clicks these buttons, the last one until the end.
class ClickingPrompt : public UserPrompt {
public:
    explicit ClickingPrompt(std::vector<std::string> buttons) : m_buttons(std::move(buttons)) { }

    void showMessage(std::string_view, MessageIcon) override { }
    bool askYesNo(std::string_view, MessageIcon) override { return next() == "yes"; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        return next() == "yes" ? YesNoCancel::kYes : YesNoCancel::kNo;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }

private:
    std::string next()
    {
        const std::string button = m_buttons.at(0);
        if (m_buttons.size() > 1)
            m_buttons.erase(m_buttons.begin());
        return button;
    }

    std::vector<std::string> m_buttons;
};

// What an operation in the window makes of a ROM.
struct WindowsResult {
    Bytes bytes;
    std::uint64_t droppedWrites = 0;
};

// Command lines of the verb data on the demo and on other ROMs, beside the same operations in the
// window.
class DataCommandTest : public CliTest {
protected:
    CliOutcome data(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "data");
        return run(std::move(words));
    }
    // Runs an operation on a ROM; its output file is output().
    CliOutcome change(const std::string& rom, std::vector<std::string> words) const
    {
        words.insert(words.begin(), rom);
        words.insert(words.end(), {"-o", path("out.nes")});
        return data(std::move(words));
    }
    std::optional<Bytes> output() const { return loadFile(std::filesystem::path(path("out.nes"))); }

    // What the window's operation makes of a ROM while a room is shown. Two answers at most.
    static WindowsResult windowsResult(const Bytes& rom, std::uint8_t room, RoomDataKind kind,
                                       const std::vector<std::string>& answers,
                                       const Change& change)
    {
        OpenGame game;
        EditorState& state = game.state;
        state.rom.setBytes(rom);
        state.prepareRoomData();
        state.graphics.selectRoom(room);
        ClickingPrompt prompt(answers);
        DataManagementModel model(state, prompt);
        change(model, kind);
        return {{state.rom.bytes().begin(), state.rom.bytes().end()}, state.rom.droppedWrites()};
    }

    // Runs the operation both ways, for each kind of data.
    void expectAsInTheWindow(const std::vector<std::string>& words, std::uint8_t room,
                             const std::vector<std::string>& answers, const Change& change)
    {
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            std::vector<std::string> all = words;
            all.insert(all.end(), {"--kind", kKinds[i]});
            for (const std::string& answer : answers)
                all.insert(all.end(), {"--answer", answer});
            const auto outcome = this->change("demo.nes", all);
            EXPECT_EQ(outcome.status, 0) << kKinds[i] << ": " << outcome.err;
            const Bytes expected =
                windowsResult(demoBytes(), room, static_cast<RoomDataKind>(i), answers, change)
                    .bytes;
            EXPECT_NE(expected, demoBytes()) << kKinds[i] << ": the operation does nothing";
            EXPECT_TRUE(output() == expected) << kKinds[i];
            std::filesystem::remove(path("out.nes"));
        }
    }
    // Refused: the reason stands on standard error, and no file is there.
    void expectRefusal(const CliOutcome& outcome, const std::string& reason) const
    {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, reason);
        EXPECT_FALSE(std::filesystem::exists(path("out.nes")));
    }
};

inline void setWord(Bytes& bytes, std::size_t offset, unsigned value)
{
    bytes.at(offset) = static_cast<std::uint8_t>(value & 0xFF);
    bytes.at(offset + 1) = static_cast<std::uint8_t>(value >> 8);
}

} // namespace velko::test

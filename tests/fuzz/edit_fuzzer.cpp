#include "gfx/palette_model.h"
#include "gfx/tile_allocation_model.h"
#include "pages/data_management_model.h"
#include "pages/door_model.h"
#include "pages/map_allocation_model.h"
#include "pages/map_edit_model.h"
#include "pages/map_layout_model.h"
#include "pages/room_settings_model.h"
#include "pages/unit_placement_model.h"
#include "tests/fuzz/demo_overlay.h"
#include "tools/area_settings.h"
#include "tools/overworld_model.h"

#include <algorithm>
#include <array>

namespace {

using namespace velko;
using namespace velko::fuzz;

constexpr std::size_t kMostEdits = 24;

// Every question has the answer that the input tells.
class AnsweringPrompt : public UserPrompt {
public:
    explicit AnsweringPrompt(bool yes) : m_yes(yes) { }

    void showMessage(std::string_view text, MessageIcon) override { require(!text.empty()); }
    bool askYesNo(std::string_view, MessageIcon) override { return m_yes; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        return m_yes ? YesNoCancel::kYes : YesNoCancel::kNo;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return m_yes; }

private:
    bool m_yes;
};

// The models of all pages and tools over one game, each used as its window does.
class Editor {
public:
    Editor(EditorState& state, Input& input, UserPrompt& prompt)
        : m_state(state), m_input(input), m_prompt(prompt)
    {
    }

    void edit()
    {
        constexpr std::array kWindows = {
            &Editor::editRoom,   &Editor::editScreenList, &Editor::editLayout,
            &Editor::editMap,    &Editor::editDoors,      &Editor::editUnits,
            &Editor::editTiles,  &Editor::editColours,    &Editor::editSettings,
            &Editor::editBlocks, &Editor::editAreas,      &Editor::editOverworld};
        (this->*kWindows[below(kWindows.size())])();
    }

private:
    std::uint32_t below(std::size_t limit)
    {
        return m_input.number(2) % static_cast<std::uint32_t>(limit);
    }
    int number(int limit) { return static_cast<int>(below(static_cast<std::size_t>(limit))); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(m_input.number(1)); }
    RoomView::Position point() { return {number(700) - 20, number(600) - 20}; }

    // Pictures take most of the time, and have a fuzzer of their own.
    bool isShown() { return below(16) == 0; }

    // What is refused has changed nothing.
    template <typename Edit> void expectRefusedOrDone(Edit edit)
    {
        const std::vector<std::uint8_t> before(m_state.rom.bytes().begin(),
                                               m_state.rom.bytes().end());
        require(edit() || std::ranges::equal(m_state.rom.bytes(), before));
    }

    void editRoom() { m_state.graphics.selectRoom(static_cast<std::uint8_t>(below(kMostRooms))); }

    void editScreenList()
    {
        MapAllocationModel model(m_state);
        model.resetSelection();
        model.select(number(256));
        switch (below(6)) {
        case 0:
            return expectRefusedOrDone([&] {
                return model.insertAfterSelected() == MapAllocationModel::InsertResult::kDone;
            });
        case 1:
            return model.removeSelected();
        case 2:
            return model.resetList();
        case 3:
            return static_cast<void>(model.useFreeScreen());
        case 4:
            return model.setAddress(m_input.number(4));
        default:
            return model.setIndex(m_input.number(4));
        }
    }

    void editLayout()
    {
        MapLayoutModel model(m_state);
        if (!model.hasMap())
            return;
        constexpr std::array kResizings = {
            &MapLayoutModel::growHeight, &MapLayoutModel::shrinkHeight, &MapLayoutModel::growWidth,
            &MapLayoutModel::shrinkWidth};
        model.selectCell({below(256), below(256)});
        switch (below(4)) {
        case 0:
            model.assignScreen(number(256));
            break;
        case 1:
            model.moveMap(number(3) - 1, number(3) - 1);
            break;
        case 2:
            if (model.partnerSizeDiffers())
                model.takePartnerSize();
            break;
        default: {
            const auto resize = kResizings[below(kResizings.size())];
            expectRefusedOrDone(
                [&] { return (model.*resize)() == MapLayoutModel::ResizeResult::kDone; });
        }
        }
        (void)model.synchronisedRoomsText();
    }

    void editMap()
    {
        MapEditModel model(m_state, m_prompt);
        model.refresh();
        if (!model.hasMap())
            return;
        for (std::uint32_t strokes = below(6); strokes > 0; --strokes) {
            model.setMode(static_cast<MapEditMode>(below(4)));
            model.selectBlockAt(point());
            model.selectPaletteAt(point());
            model.selectPhysicsAt(point());
            model.applyRight(point());
            model.applyLeft(point());
        }
        if (below(2) == 0)
            model.convertAndWrite();
        else
            model.leave();
    }

    void editDoors()
    {
        DoorModel model(m_state);
        model.showRoom();
        model.selectEntrance(below(DoorModel::kSlots));
        model.selectExit(below(DoorModel::kSlots));
        model.placeEntrance(point().x, point().y);
        model.moveEntrance(number(3) - 1, number(3) - 1);
        model.setExitRoom(byte());
        model.setExitEntrance(static_cast<std::uint8_t>(below(DoorModel::kSlots)));
        if (isShown())
            model.draw(m_picture);
    }

    void editUnits()
    {
        UnitPlacementModel model(m_state);
        model.refresh();
        model.selectUnit(number(256));
        model.selectLoad(number(256));
        switch (below(8)) {
        case 0:
            expectRefusedOrDone([&] { return model.addUnit().ok(); });
            break;
        case 1:
            model.removeUnit();
            break;
        case 2:
            expectRefusedOrDone([&] { return model.insertLoad().ok(); });
            break;
        case 3:
            model.deleteLoad();
            break;
        case 4:
            model.setLoadId(byte());
            break;
        case 5:
            model.startMoving(model.selectedUnit());
            model.movePointer(point());
            break;
        case 6:
            model.press(point());
            model.movePointer(point());
            model.tick();
            break;
        default:
            changeUnit(model);
        }
        if (isShown()) {
            model.draw(m_picture);
            model.drawVramSetup(m_picture);
        }
    }
    void changeUnit(UnitPlacementModel& model)
    {
        model.setType(byte());
        model.setPlaced(below(2) == 0);
        model.setScreenX(m_input.number(4));
        model.setScreenY(m_input.number(4));
        model.setPixelX(m_input.number(4));
        model.setPixelY(m_input.number(4));
    }

    void editTiles()
    {
        TileAllocationModel model(m_state);
        model.selectSlot(number(TileAllocationModel::kSlots));
        model.selectBlock(number(TileAllocationModel::kBlocksPerPage));
        model.browseTo(number(0x10000));
        model.setCurrentColour(number(TileAllocationModel::kColours));
        model.paint({number(16), number(16)});
        model.toggleMirror();
        model.toggleUnusedBit();
    }

    void editColours()
    {
        PaletteModel model(m_state);
        model.selectEntry(number(PaletteModel::kEntries));
        model.setValue(byte());
        model.stepHue(number(5) - 2);
        model.stepBrightness(number(5) - 2);
    }

    void editSettings()
    {
        RoomSettingsModel model(m_state);
        model.setMusic(byte());
        if (!model.isChamber())
            return;
        if (model.hasItem())
            model.removeItem();
        else
            model.addItem();
        model.setItem(byte());
        model.setSpriteAddress(m_input.number(2));
        model.takeItemAddress();
    }

    void editBlocks()
    {
        DataManagementModel model(m_state, m_prompt);
        const RoomDataKind kind = DataManagementModel::kRows[below(kRoomDataKinds)].kind;
        const auto room = number(static_cast<int>(m_state.config.roomCount()));
        switch (below(7)) {
        case 0:
            return model.setPointer(kind, m_input.number(2));
        case 1:
            return expectRefusedOrDone([&] { return model.allocateUniqueData(kind); });
        case 2:
            return model.deleteData(kind);
        case 3:
            return model.setPointerToRoom(kind, room);
        case 4:
            return static_cast<void>(model.cloneDataOfRoom(kind, room));
        case 5:
            return model.deleteUnusedData(kind);
        default:
            return model.joinIdenticalData(kind);
        }
    }

    void editAreas()
    {
        AreaSettings areas(m_state);
        areas.selectArea(below(areas.lastArea() + 1));
        areas.setParachute(below(2) == 0);
        if (areas.hasClearItem())
            areas.setClearItem(static_cast<std::uint8_t>(below(kItems)));
    }

    void editOverworld()
    {
        OverworldModel model(m_state, m_prompt);
        for (std::uint32_t edits = below(6); edits > 0; --edits) {
            model.setMode(static_cast<OverworldMode>(below(5)));
            model.selectTile(number(256));
            model.selectPreset(number(model.lastPreset() + 1));
            model.selectArea(number(model.lastArea() + 1));
            model.selectEntry(number(model.lastEntry() + 1));
            model.selectTruck(number(model.lastTruck() + 1));
            model.selectPhase(number(model.lastPhase() + 1));
            changeOverworld(model);
        }
        if (isShown())
            model.drawMap(m_picture);
    }
    void changeOverworld(OverworldModel& model)
    {
        constexpr std::array kChanges = {&OverworldModel::addEntry, &OverworldModel::removeEntry,
                                         &OverworldModel::addPhase, &OverworldModel::removePhase};
        constexpr std::array kSetters = {
            &OverworldModel::setChopperSprite, &OverworldModel::setPathPreviewSprite,
            &OverworldModel::setFirstDigit,    &OverworldModel::setSecondDigit,
            &OverworldModel::setStartingArea,  &OverworldModel::setPatternSet,
            &OverworldModel::setDirection};
        const RoomView::Position at = point();
        switch (below(4)) {
        case 0:
            return (model.*kChanges[below(kChanges.size())])();
        case 1:
            return (model.*kSetters[below(kSetters.size())])(number(16));
        default:
            model.press(below(2) == 0 ? MapButton::kLeft : MapButton::kRight, at.x, at.y);
            model.drag(MapButton::kLeft, at.y, at.x);
        }
    }

    EditorState& m_state;
    Input& m_input;
    UserPrompt& m_prompt;
    PixelImage m_picture;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    sharedDemo();
    return 0;
}

// Whatever a ROM holds, every page and tool can edit it: nothing outside a buffer is touched,
// nothing takes forever, the image keeps its size and its header, and what is refused has changed
// nothing. The input is three bytes of offset, one of length and so many bytes that are laid over
// the demo's, then one byte of answer and the edits.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Demo& demo = sharedDemo();
    EditorState& state = demo.state;
    Input input({data, size});
    const std::uint32_t offset = std::max(input.number(3) & 0x3FFFF, kHeaderSize);
    const std::size_t length = std::min<std::size_t>(input.number(1), input.rest().size());
    state.rom.setBytes(romFrom(demo, true, offset, input.rest().first(length)));
    for (std::size_t i = 0; i < length; ++i)
        input.number(1);
    AnsweringPrompt prompt((input.number(1) & 1) != 0);
    state.graphics.selectRoom(0);
    state.prepareRoomData();

    Editor editor(state, input, prompt);
    for (std::size_t edits = 0; edits < kMostEdits && !input.rest().empty(); ++edits)
        editor.edit();

    require(state.rom.size() == demo.rom.size());
    require(std::ranges::equal(state.rom.bytes().first(kHeaderSize),
                               std::span(demo.rom).first(kHeaderSize)));
    return 0;
}

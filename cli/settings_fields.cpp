#include "cli/field_parts.h"
#include "pages/room_settings_model.h"

namespace velko {

namespace {

constexpr const char* kNoChamber = "the room is no chamber: it holds no item";

FieldResult music(EditorState& state, FieldNumbers)
{
    return bitField(state.rom, {state.config.value(MiscField::ptrRoomMusic) + state.currentRoom()});
}

// File offset of the room's entry in a table of chambers.
std::uint32_t chamberEntry(const EditorState& state, MiscField table, std::uint32_t bytes)
{
    const std::uint32_t chamber =
        state.currentRoom() - state.config.value(MiscField::areaFirstNAchamber);
    return state.config.value(table) + bytes * chamber;
}

// As the box of the window does: an item comes to an empty chamber with an address, and takes the
// address away.
Field::Refusal setItem(RoomSettingsModel settings, std::uint32_t item)
{
    if (item == settings.item())
        return std::nullopt;
    if (item == RoomSettingsModel::kNoItem) {
        settings.removeItem();
        return std::nullopt;
    }
    if (!settings.hasItem())
        settings.addItem();
    settings.setItem(static_cast<std::uint8_t>(item));
    return std::nullopt;
}

FieldResult item(EditorState& state, FieldNumbers)
{
    if (!RoomSettingsModel(state).isChamber())
        return kNoChamber;
    Field field = limited(
        bitField(state.rom, {chamberEntry(state, MiscField::ptrNA_ChamberItem, 1)}), kItems - 1);
    field.also = RoomSettingsModel::kNoItem;
    field.set = [&state](std::uint32_t value) { return setItem(RoomSettingsModel(state), value); };
    return field;
}

FieldResult itemAddress(EditorState& state, FieldNumbers)
{
    if (!RoomSettingsModel(state).isChamber())
        return kNoChamber;
    return wordField(state.rom, chamberEntry(state, MiscField::ptrNA_ChItemAddress, 2));
}

constexpr FieldRule kRules[] = {
    {"room.R.music", "0 to ff", "the room's music", inRoom<music>},
    {"room.R.item", "0 to 19, ff",
     "a chamber's item; ff for none, which clears its address too. An empty chamber gets the "
     "address ab06 with its item",
     inRoom<item>},
    {"room.R.itemaddress", "0 to ffff", "where the frame of a chamber's item lies",
     inRoom<itemAddress>},
};

} // namespace

std::span<const FieldRule> settingsFieldRules()
{
    return kRules;
}

} // namespace velko

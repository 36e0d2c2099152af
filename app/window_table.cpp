#include "app/window_table.h"

#include "gfx/palette_page.h"
#include "gfx/tile_allocation_page.h"
#include "pages/data_management_page.h"
#include "pages/door_placement_page.h"
#include "pages/map_allocation_page.h"
#include "pages/map_editing_page.h"
#include "pages/map_layout_page.h"
#include "pages/miscellaneous_page.h"
#include "pages/unit_placement_page.h"
#include "tools/area_editor_dialog.h"
#include "tools/main_map_editor_dialog.h"
#include "tools/room_selector_dialog.h"

namespace velko {

namespace {

Page* makeMapLayoutPage(const WindowContext& context, QWidget* parent)
{
    return new MapLayoutPage(context.state, context.prompt, parent);
}

Page* makeTileAllocationPage(const WindowContext& context, QWidget* parent)
{
    return new TileAllocationPage(context.state, parent);
}

Page* makeMapEditingPage(const WindowContext& context, QWidget* parent)
{
    return new MapEditingPage(context.state, context.prompt, parent);
}

Page* makePalettePage(const WindowContext& context, QWidget* parent)
{
    return new PalettePage(context.state, parent);
}

Page* makeDoorPlacementPage(const WindowContext& context, QWidget* parent)
{
    return new DoorPlacementPage(context.state, parent);
}

Page* makeUnitPlacementPage(const WindowContext& context, QWidget* parent)
{
    return new UnitPlacementPage(context.state, context.prompt, parent);
}

Page* makeMiscellaneousPage(const WindowContext& context, QWidget* parent)
{
    return new MiscellaneousPage(context.state, parent);
}

Page* makeMapAllocationPage(const WindowContext& context, QWidget* parent)
{
    return new MapAllocationPage(context.state, context.prompt, parent);
}

Page* makeDataManagementPage(const WindowContext& context, QWidget* parent)
{
    return new DataManagementPage(context.state, context.prompt, parent);
}

std::uint8_t openRoomSelector(const WindowContext& context, QWidget* parent, std::uint8_t room)
{
    RoomSelectorDialog dialog(context.state, room, parent);
    dialog.exec();
    return dialog.room();
}

void openAreaEditor(const WindowContext& context, QWidget* parent)
{
    AreaEditorDialog(context.state, parent).exec();
}

void openMainMapEditor(const WindowContext& context, QWidget* parent)
{
    MainMapEditorDialog(context.state, context.prompt, parent).exec();
}

} // namespace

WindowTable editorWindows()
{
    return {PageTable{{
                {"Map allocation ", makeMapAllocationPage},
                {"Map layout ", makeMapLayoutPage},
                {"Map editing ", makeMapEditingPage},
                {"Door placement ", makeDoorPlacementPage},
                {"Unit placement ", makeUnitPlacementPage},
                {"Tile allocation ", makeTileAllocationPage},
                {"Palette ", makePalettePage},
                {"Miscellaneous ", makeMiscellaneousPage},
                {"Data management ", makeDataManagementPage},
            }},
            ToolTable{openRoomSelector, openAreaEditor, openMainMapEditor}};
}

} // namespace velko

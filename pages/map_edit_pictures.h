#pragma once

#include "gfx/pixel_image.h"
#include "pages/map_edit_model.h"
#include "state/editor_state.h"

#include <optional>

namespace velko {

// The pictures of the map editing page. Each gets the size at which it is shown and is drawn
// whole, from the model and from the palette and graphics of the current room. They are for rooms
// with a map.

// The 64 background blocks, the selected one framed: in the combined mode each in the palette of
// its first cell in the room, in the other modes in greys.
void drawTileSelector(const EditorState& state, const MapEditModel& model, PixelImage& image);
// The four background palettes, a row of four colours each, the selected one framed.
void drawPaletteSelector(const EditorState& state, const MapEditModel& model, PixelImage& image);
// The module's pictures of the physics values, two to a row, the selected one framed. Each fills
// its cell; of different sizes the largest counts. A picture of 141 x 40 pixels (248 x 71 in its
// file) keeps its proportions.
void drawPhysicsSelector(const EditorState& state, const MapEditModel& model, PixelImage& image);

// The part of the room that model.view(), scrolled in steps, shows: in the physics mode in the
// colours of the cells' physics. Cells past the end of the room's screen list look faded: they
// cannot be edited. With a `hero` position, in pixels of the region before it is scaled, the game's
// hero stands there.
void drawMapView(const EditorState& state, const MapEditModel& model, PixelImage& image,
                 std::optional<RoomView::Position> hero = std::nullopt);
// Where the hero stands while the mouse is at a point of the shown map view.
RoomView::Position heroPosition(const RoomView& view, RoomView::Position point);

} // namespace velko

#pragma once

#include "app/page.h"
#include "app/room_view_scroller.h"
#include "pages/map_edit_model.h"
#include "rom/user_prompt.h"

#include <QPoint>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class MapEditingPage;
}

namespace velko {

class PictureView;

// The map editing tab: the room's map, painted in cells of 16x16 pixels, and the selectors of what
// is painted. The changes reach the ROM image by the button, or when the page asks for them.
class MapEditingPage final : public Page {
    Q_OBJECT
public:
    MapEditingPage(EditorState& state, UserPrompt& prompt, QWidget* parent = nullptr);
    ~MapEditingPage() override;

    void setup() override;
    // Tells when the room has no map.
    void refresh() override;
    // With unwritten changes asks whether to write them. What the user does not want to keep is
    // gone from the map as well.
    void commitEdits() override;
    void leave(bool revert) override;
    void pause() override;
    void resume() override;
    // With the box checked the hero stands at the mouse while the key is down.
    void shiftKey(bool down) override;

protected:
    bool event(QEvent* event) override;

private:
    using Point = MapEditModel::Point;
    using Act = std::function<void(Point)>;

    void connectModes();
    void connectSelectors();
    void connectMap();
    void connectSelector(PictureView& view, const SelectorGrid& grid,
                         const std::function<std::uint32_t()>& selected, const Act& select);
    // A press, and each move to another point with the button held.
    void connectDrag(PictureView& view, Qt::MouseButton button, const Act& act);
    void fitTexts();

    void paint(Point point);
    void pick(Point point);
    void moveHero(QPoint point);

    void showRoom();
    void showMode();
    void showSelectors();
    void showMap();
    void showTexts();

    EditorState& m_state;
    UserPrompt& m_prompt;
    MapEditModel m_model;
    std::unique_ptr<Ui::MapEditingPage> m_ui;
    std::unique_ptr<RoomViewScroller> m_scroller;
    bool m_shiftIsDown = false;
    bool m_isPaused = false;                  // other graphics than the room's may be loaded
    std::optional<RoomView::Position> m_hero; // known once the mouse was over the map
};

} // namespace velko

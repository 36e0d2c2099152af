#pragma once

#include "app/page.h"
#include "pages/door_model.h"

#include <array>
#include <memory>

class QButtonGroup;
class QKeyEvent;
class QRadioButton;

namespace Ui {
class DoorPlacementPage;
}

namespace velko {

class RoomViewScroller;

// The door placement tab: where the hero appears in the room, placed with the mouse on a view of
// it, and where the room's exits lead. Every change is in the ROM image at once.
class DoorPlacementPage final : public Page {
    Q_OBJECT
public:
    explicit DoorPlacementPage(EditorState& state, QWidget* parent = nullptr);
    ~DoorPlacementPage() override;

    void setup() override;
    void refresh() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    using Radios = std::array<QRadioButton*, DoorModel::kSlots>;

    // Buttons of one choice, numbered 0 to 3.
    QButtonGroup* groupOf(const Radios& radios);
    void connectEntrances();
    void connectExits();
    void connectMap();

    // To a point of the picture, or beyond its edges.
    void moveMouse(QPoint point, Qt::MouseButtons buttons);
    void showPlaced();
    // Shift and an arrow key, pressed on the map. Returns false for any other key.
    bool moveEntranceByKey(const QKeyEvent& key);

    void showEntrance();
    // After the view may have followed an entrance.
    void showEntranceInView();
    void showExit();
    void showMap();

    EditorState& m_state;
    DoorModel m_model;
    std::unique_ptr<Ui::DoorPlacementPage> m_ui;
    std::unique_ptr<RoomViewScroller> m_scroller;
    QButtonGroup* m_entrances; // owned by the page, like the next two
    QButtonGroup* m_exits;
    QButtonGroup* m_exitEntrances;
};

} // namespace velko

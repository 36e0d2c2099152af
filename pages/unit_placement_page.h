#pragma once

#include "app/page.h"
#include "pages/unit_placement_model.h"
#include "rom/user_prompt.h"

#include <QTimer>
#include <memory>

namespace Ui {
class UnitPlacementPage;
}

namespace velko {

class HexEdit;
class LineList;
class RoomViewScroller;

// The unit placement tab: the room with its enemies, items and other units, which the user moves
// with the mouse, their list, and the sprite graphics that the game loads for the room. Every
// change is in the ROM image at once.
class UnitPlacementPage final : public Page {
    Q_OBJECT
public:
    UnitPlacementPage(EditorState& state, UserPrompt& prompt, QWidget* parent = nullptr);
    ~UnitPlacementPage() override;

    // Starts a timer that calls tick() every 16 ms.
    void setup() override;
    void refresh() override;
    // Stops it.
    void leave(bool revert) override;
    void pause() override { m_model.pause(); }
    void resume() override { m_model.resume(); }

    // Moves sprites on, scrolls at the border while a unit is moved, and redraws the view.
    void tick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using SetNumber = void (UnitPlacementModel::*)(std::uint32_t);

    void connectView();
    void connectUnits();
    void connectStats();
    void connectNumber(HexEdit& box, SetNumber setNumber);
    void connectLoads();

    void addUnit();
    void insertLoad();
    // The mouse moved, anywhere in the window.
    void movePointer(QPoint globalPoint);
    bool belongsToAnotherControl(QPoint globalPoint) const;

    void showUnits();
    void showStats();
    void showLoads();
    void showLoadId();
    void showView();

    EditorState& m_state;
    UserPrompt& m_prompt;
    UnitPlacementModel m_model;
    std::unique_ptr<Ui::UnitPlacementPage> m_ui;
    std::unique_ptr<RoomViewScroller> m_scroller;
    std::unique_ptr<LineList> m_units;
    std::unique_ptr<LineList> m_loads;
    QTimer m_timer{this};
    // Since the current move began. A move that starts in the list is on its way there first.
    bool m_pointerWasInView = false;
};

} // namespace velko

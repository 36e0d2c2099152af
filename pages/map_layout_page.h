#pragma once

#include "app/page.h"
#include "pages/map_grid_picture.h"
#include "pages/map_layout_model.h"
#include "rom/user_prompt.h"

#include <QStringListModel>
#include <memory>

namespace Ui {
class MapLayoutPage;
}

namespace velko {

// The map layout tab: the room's map as a grid of screens, the selected cell's screen, and the
// room's screen list to choose another one from. The map can be resized and moved around its
// edges. Every change is in the ROM image at once.
class MapLayoutPage final : public Page {
    Q_OBJECT
public:
    MapLayoutPage(EditorState& state, UserPrompt& prompt, QWidget* parent = nullptr);
    ~MapLayoutPage() override;

    void setup() override;
    // Tells when the room has no map, and asks when it should have its partner's size.
    void refresh() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void connectButtons();
    void connectGrid();
    void connectList();

    void resizeMap(MapLayoutModel::ResizeResult (MapLayoutModel::*change)());
    void moveMap(int rows, int columns);
    void selectCellAt(QPoint point);
    void moveSelection(QPoint direction);
    void assignChosenScreen();

    // Everything, read anew.
    void showRoom();
    void showLines();
    // After the selected cell, or what it holds, changed.
    void showSelection();
    void showSelectedLine();
    void showGrid();
    // Gives the grid its space, beside scroll bars when the map is larger.
    void fitGrid();

    EditorState& m_state;
    UserPrompt& m_prompt;
    MapLayoutModel m_model;
    MapGridPicture m_grid;
    std::unique_ptr<Ui::MapLayoutPage> m_ui;
    QStringListModel m_lines;
};

} // namespace velko

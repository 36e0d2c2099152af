#pragma once

#include "app/page.h"
#include "gfx/tile_allocation_model.h"
#include "gfx/tile_allocation_pictures.h"

#include <memory>

class QKeyEvent;

namespace Ui {
class TileAllocationPage;
}

namespace velko {

class PictureView;

// The tile allocation tab: the room's 64 background slots, the blocks that the selected slot can
// be filled with, and the pixels of its block to paint on. Every change is in the ROM image, and
// in the room's pattern memory, at once.
class TileAllocationPage final : public Page {
    Q_OBJECT
public:
    explicit TileAllocationPage(EditorState& state, QWidget* parent = nullptr);
    ~TileAllocationPage() override;

    void setup() override;
    void refresh() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // Picks a cell of a grid with the left button, and its neighbours with the arrow keys.
    void connectGrid(PictureView& view, void (TileAllocationModel::*select)(int),
                     void (TileAllocationModel::*moveBy)(int columns, int rows));
    void connectAllocation();
    void connectCanvas();
    void connectColours();

    void pressCanvas(QPoint point, Qt::MouseButton button);
    void dragOverCanvas(QPoint point);
    void pressCanvasKey(QKeyEvent& key);
    void moveCursor(QPoint direction);
    void setCursorShown(bool shown);
    void paint();
    void setCurrentColour(int colour);

    void showSelection();
    void showCanvas();
    void showColours();

    TileAllocationModel m_model;
    TileAllocationPictures m_pictures;
    // The pixel that the keyboard paints: the last one that the mouse was pressed on, until the
    // arrow keys move it. Shown only while the keyboard is used.
    TileAllocationModel::BlockPixel m_cursor;
    bool m_cursorShown = false;
    std::unique_ptr<Ui::TileAllocationPage> m_ui;
};

} // namespace velko

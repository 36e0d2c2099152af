#pragma once

#include "state/editor_state.h"
#include "tools/room_browser.h"

#include <QDialog>
#include <array>
#include <memory>

namespace Ui {
class RoomSelectorDialog;
}

namespace velko {

class PictureView;

// Shows the rooms as captioned pictures of their maps, a page of eight at a time, and lets the
// user choose one. Every picture selects its room, so when the dialog closes another room may be
// the current one: the caller selects the one it wants.
class RoomSelectorDialog final : public QDialog {
    Q_OBJECT
public:
    // Opens on the page of `room`, which is the room held until another is chosen.
    RoomSelectorDialog(EditorState& state, std::uint8_t room, QWidget* parent = nullptr);
    ~RoomSelectorDialog() override;

    // The room held.
    std::uint8_t room() const { return m_room; }
    // Whether the window was closed by its caption's close box.
    bool closedByCaption() const { return m_closedByCaption; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void createThumbnails();
    void connectControls();

    void showPage();
    void showRoom(PictureView& view, std::uint32_t room);
    // Wherever a mouse button went down, it is where it comes up that counts.
    void releaseButton(QPointF globalPoint, Qt::MouseButton button);
    void pressKey(int slot, QKeyEvent& key);
    void chooseRoom(std::uint32_t room);

    EditorState& m_state;
    RoomBrowser m_browser;
    std::uint8_t m_room;
    bool m_closedByCaption = false;
    std::unique_ptr<Ui::RoomSelectorDialog> m_ui;
    std::array<PictureView*, RoomBrowser::kSlots> m_thumbnails{}; // owned by their area
};

} // namespace velko

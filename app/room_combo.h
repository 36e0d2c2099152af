#pragma once

#include "state/editor_state.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <span>
#include <string>

namespace velko {

// A drop-down list in which typing finds an entry. Room names mostly begin alike and hold blanks,
// so a blank typed on the heels of other letters belongs to the name; by itself it opens the list
// as usual. The list drops down below the box, at most maxVisibleItems long, whatever the style.
// The mouse wheel chooses only while the box has the focus: turned to scroll the page it must not
// change the game.
class RoomCombo : public QComboBox {
    Q_OBJECT
public:
    explicit RoomCombo(QWidget* parent = nullptr);

    // Fills the list with the names of all rooms, in room order. None is chosen.
    void setRooms(const EditorState& state);
    // The same with any names.
    void setNames(std::span<const std::string> names);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QElapsedTimer m_sinceLastLetter;
};

} // namespace velko

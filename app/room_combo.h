#pragma once

#include "state/editor_state.h"

#include <QComboBox>
#include <QElapsedTimer>

namespace velko {

// A drop-down list in which typing finds an entry. Room names mostly begin alike and hold blanks,
// so a blank typed on the heels of other letters belongs to the name; by itself it opens the list
// as usual. The list drops down below the box, at most maxVisibleItems long, whatever the style.
class RoomCombo : public QComboBox {
    Q_OBJECT
public:
    explicit RoomCombo(QWidget* parent = nullptr);

    // Fills the list with the names of all rooms, in room order. None is chosen.
    void setRooms(const EditorState& state);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QElapsedTimer m_sinceLastLetter;
};

} // namespace velko

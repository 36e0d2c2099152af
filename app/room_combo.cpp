#include "app/room_combo.h"

#include <QApplication>
#include <QKeyEvent>

namespace velko {

void RoomCombo::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    const bool letter = !text.isEmpty() && text.at(0).isPrint();
    const bool goesOn = m_sinceLastLetter.isValid()
        && !m_sinceLastLetter.hasExpired(QApplication::keyboardInputInterval());
    if (event->key() == Qt::Key_Space && goesOn) {
        QKeyEvent blank(QEvent::KeyPress, Qt::Key_unknown, event->modifiers(), text);
        QComboBox::keyPressEvent(&blank);
    } else {
        QComboBox::keyPressEvent(event);
        if (event->key() == Qt::Key_Space)
            return;
    }
    if (letter)
        m_sinceLastLetter.start();
}

} // namespace velko

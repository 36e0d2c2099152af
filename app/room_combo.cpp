#include "app/room_combo.h"

#include "app/text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QScrollBar>
#include <QWheelEvent>

namespace velko {

namespace {

// Some styles lay the list over the box like a menu, as high as the screen.
class DropDownStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

// Whether a letter with these keys held is not typed. Ctrl and Alt together type, as AltGr does.
bool isCommand(Qt::KeyboardModifiers modifiers)
{
    const auto held = modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return held != Qt::NoModifier && held != (Qt::ControlModifier | Qt::AltModifier);
}

} // namespace

RoomCombo::RoomCombo(QWidget* parent) : QComboBox(parent)
{
    auto* style = new DropDownStyle;
    style->setParent(this);
    setStyle(style);
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
}

void RoomCombo::setRooms(const EditorState& state)
{
    std::vector<std::string> names = state.names.rooms;
    names.resize(state.config.roomCount()); // a room without a name has an empty one
    setNames(names);
}

void RoomCombo::setNames(std::span<const std::string> names)
{
    clear();
    for (const std::string& name : names)
        addItem(toQString(name));
    setCurrentIndex(-1);
    // The list shows whole names even where the box has to cut them.
    view()->setMinimumWidth(view()->sizeHintForColumn(0)
                            + view()->verticalScrollBar()->sizeHint().width());
}

void RoomCombo::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    const bool letter = !text.isEmpty() && text.at(0).isPrint();
    if (letter && isCommand(event->modifiers())) {
        event->ignore(); // a shortcut that nothing has here must not look for a name
        return;
    }
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

void RoomCombo::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace velko

#include "app/room_combo.h"

#include "app/text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QProxyStyle>
#include <QScrollBar>

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

} // namespace

RoomCombo::RoomCombo(QWidget* parent) : QComboBox(parent)
{
    auto* style = new DropDownStyle;
    style->setParent(this);
    setStyle(style);
}

void RoomCombo::setRooms(const EditorState& state)
{
    clear();
    const std::vector<std::string>& names = state.names.rooms;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room)
        addItem(room < names.size() ? toQString(names[room]) : QString());
    setCurrentIndex(-1);
    // The list shows whole names even where the box has to cut them.
    view()->setMinimumWidth(view()->sizeHintForColumn(0)
                            + view()->verticalScrollBar()->sizeHint().width());
}

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

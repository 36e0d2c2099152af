#include "app/room_combo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QProxyStyle>

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

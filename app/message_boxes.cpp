#include "app/message_boxes.h"

#include "app/busy_cursor.h"
#include "app/text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>

namespace velko {

namespace {

class Box : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

    void allowEscape(bool allow) { m_escapable = allow; }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (m_escapable || !event->matches(QKeySequence::Cancel))
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override
    {
        if (m_escapable)
            QMessageBox::closeEvent(event);
        else
            event->ignore();
    }

private:
    bool m_escapable = true;
};

QMessageBox::Icon platformIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::kExclamation:
        return QMessageBox::Warning;
    case MessageIcon::kError:
        return QMessageBox::Critical;
    case MessageIcon::kQuestion:
        return QMessageBox::Question;
    case MessageIcon::kNone:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton show(std::string_view text, std::string_view caption, MessageIcon icon,
                                 QMessageBox::StandardButtons buttons)
{
    const OrdinaryCursor cursor;
    Box box(platformIcon(icon), titleText(caption), toQString(text), buttons,
            QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.allowEscape(buttons != (QMessageBox::Yes | QMessageBox::No));
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

void MessageBoxes::showMessage(std::string_view text, MessageIcon icon)
{
    show(text, "", icon, QMessageBox::Ok);
}

bool MessageBoxes::askYesNo(std::string_view text, MessageIcon icon)
{
    return show(text, "", icon, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

YesNoCancel MessageBoxes::askYesNoCancel(std::string_view text, MessageIcon icon)
{
    switch (show(text, "", icon, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel)) {
    case QMessageBox::Yes:
        return YesNoCancel::kYes;
    case QMessageBox::No:
        return YesNoCancel::kNo;
    default:
        return YesNoCancel::kCancel;
    }
}

bool MessageBoxes::confirm(std::string_view text, std::string_view caption)
{
    return show(text, caption, MessageIcon::kExclamation, QMessageBox::Ok | QMessageBox::Cancel)
        == QMessageBox::Ok;
}

} // namespace velko

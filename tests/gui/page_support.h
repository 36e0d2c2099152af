#pragma once

#include "app/page.h"
#include "app/ui_common.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace velko::test {

// The control below `window` that has this number in the window's template.
template <typename Widget = QWidget> Widget& controlOf(const QWidget& window, int id)
{
    for (Widget* widget : window.findChildren<Widget*>()) {
        if (widget->property(kControlId).toInt() == id)
            return *widget;
    }
    throw std::runtime_error("no control " + std::to_string(id));
}

// The control below `window` that has this object name.
template <typename Widget = QWidget> Widget& controlOf(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Widget*>(name);
    if (found == nullptr)
        throw std::runtime_error(std::string("no control ") + name);
    return *found;
}

// Types over what a box holds.
inline void typeInto(QLineEdit& box, const QString& text)
{
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, text);
}

// Clicks a check box or a radio button at its mark; the text is part of the control too.
inline void clickMark(QAbstractButton& button)
{
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
}

// Shows a window and waits until it has the focus.
inline void showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

// Shows a new page in a window of its own, active and of this size.
inline void showPage(Page& page, QSize size)
{
    page.setup();
    page.refresh();
    page.resize(size);
    showActive(page);
}

} // namespace velko::test

#include "app/focus_frame.h"

#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace velko {
namespace {

QRgb edgeOf(QWidget& widget)
{
    return widget.grab().toImage().pixel(widget.width() / 2, 0);
}

TEST(FocusFrameTest, ShowsWhereTheFocusIs)
{
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit other;
    QListWidget list;
    list.addItem("Hall");
    new FocusFrame(list);
    layout.addWidget(&other);
    layout.addWidget(&list);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    other.setFocus();
    const QRgb without = edgeOf(list);
    list.setFocus();
    EXPECT_EQ(edgeOf(list), list.palette().color(QPalette::Highlight).rgb());
    EXPECT_NE(edgeOf(list), without);
    other.setFocus();
    EXPECT_EQ(edgeOf(list), without);
}

} // namespace
} // namespace velko

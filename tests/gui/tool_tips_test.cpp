#include "app/tool_tips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace velko {
namespace {

class ToolTipsTest : public testing::Test {
protected:
    ToolTipsTest()
    {
        qApp->installEventFilter(&m_toolTips);
        label.resize(200, 40);
        label.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&label));
    }
    ~ToolTipsTest() override
    {
        QToolTip::hideText();
        QTest::qWait(350); // until it is gone
    }

    // The height of the tip that is shown; 0 for none.
    int shownHeight(const QString& tip)
    {
        label.setToolTip(tip);
        QHelpEvent event(QEvent::ToolTip, {10, 10}, label.mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(&label, &event);
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel") && window->isVisible())
                return window->height();
        }
        return 0;
    }

    QLabel label;

private:
    ToolTips m_toolTips;
};

TEST_F(ToolTipsTest, LongTipBreaksItsLines)
{
    const QString text = QString("All the rooms of the game, and more. ").repeated(3);
    EXPECT_GT(shownHeight(text), 2 * label.fontMetrics().lineSpacing());
}

TEST_F(ToolTipsTest, TextIsShownAsItStands)
{
    EXPECT_GT(shownHeight("a & b, 1 < 2"), 0);
    EXPECT_EQ(QToolTip::text(), "<p>a &amp; b, 1 &lt; 2</p>");
}

TEST_F(ToolTipsTest, MarkupIsLeftAlone)
{
    EXPECT_GT(shownHeight("<p>one <b>two</b></p>"), 0);
    EXPECT_EQ(QToolTip::text(), "<p>one <b>two</b></p>");
}

TEST_F(ToolTipsTest, NothingIsShownWithoutATip)
{
    EXPECT_EQ(shownHeight(""), 0);
}

} // namespace
} // namespace velko

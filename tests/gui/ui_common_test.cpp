#include "app/ui_common.h"

#include <QFrame>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <gtest/gtest.h>

namespace velko {
namespace {

class UiCommonTest : public testing::Test {
protected:
    UiCommonTest()
    {
        page.setGeometry(50, 60, 300, 200);
        anchor.setGeometry(10, 20, 30, 40);
        control.setGeometry(100, 50, 80, 60);
    }

    QWidget window;
    QWidget page{&window};
    QWidget anchor{&page};
    QWidget control{&page};
};

TEST_F(UiCommonTest, HitTestKnowsTheControlsRectangle)
{
    EXPECT_TRUE(hitTest({100, 50}, page, control));
    EXPECT_TRUE(hitTest({179, 109}, page, control));
    EXPECT_FALSE(hitTest({180, 50}, page, control));
    EXPECT_FALSE(hitTest({100, 110}, page, control));
    EXPECT_FALSE(hitTest({99, 50}, page, control));
}

TEST_F(UiCommonTest, HitTestTellsTheRelativePointInsideAndOutside)
{
    QPoint relative;
    EXPECT_TRUE(hitTest({110, 55}, page, control, &relative));
    EXPECT_EQ(relative, QPoint(10, 5));
    EXPECT_FALSE(hitTest({90, 30}, page, control, &relative));
    EXPECT_EQ(relative, QPoint(-10, -20));
}

TEST_F(UiCommonTest, HitTestTakesPointsOfAnyAncestor)
{
    QPoint relative;
    EXPECT_TRUE(hitTest({150, 110}, window, control, &relative));
    EXPECT_EQ(relative, QPoint(0, 0));
}

TEST_F(UiCommonTest, PlaceControlMovesBesideTheAnchor)
{
    placeControl(control, anchor, 5, -7, 16, 17);
    EXPECT_EQ(control.geometry(), QRect(15, 13, 16, 17));
}

TEST_F(UiCommonTest, PlaceControlKeepsASizeThatIsNegative)
{
    placeControl(control, anchor, 0, 0, -1, 17);
    EXPECT_EQ(control.size(), QSize(80, 17));
    placeControl(control, anchor, 0, 0, 16, -1);
    EXPECT_EQ(control.size(), QSize(16, 17));
}

TEST_F(UiCommonTest, PlaceControlKeepsTheSizeWithoutTheBorder)
{
    QFrame framed(&page);
    framed.setFrameStyle(QFrame::Box | QFrame::Plain);
    framed.setLineWidth(2);
    framed.setGeometry(0, 0, 50, 40);
    placeControl(framed, anchor, 0, 0, -1, -1);
    EXPECT_EQ(framed.size(), QSize(46, 36));
}

TEST_F(UiCommonTest, PlaceControlMeasuresFromTheOuterCornerOfAWindow)
{
    window.setGeometry(100, 100, 400, 300);
    window.show();
    const QPoint frame = window.geometry().topLeft() - window.frameGeometry().topLeft();
    placeControl(control, page, 1, 2, -1, -1);
    EXPECT_EQ(control.pos(), QPoint(51, 62) + frame);
}

TEST(ResizeToContentsTest, ContentsAreShownWholeWhereTheScreenAllows)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* scroll = new QScrollArea;
    layout->addWidget(scroll);
    auto* contents = new QWidget;
    scroll->setWidgetResizable(true);
    scroll->setWidget(contents);

    contents->setMinimumSize(500, 310);
    resizeToContents(window, *scroll);
    window.show();
    EXPECT_GE(scroll->viewport()->width(), 500);
    EXPECT_GE(scroll->viewport()->height(), 310);
    EXPECT_LT(scroll->viewport()->height(), 330);
    window.resize(300, 200); // it may be made smaller all the same
    EXPECT_EQ(window.size(), QSize(300, 200));

    contents->setMinimumSize(310, 50000);
    resizeToContents(window, *scroll);
    EXPECT_EQ(window.height(), static_cast<int>(0.95 * window.screen()->availableSize().height()));
    QTest::qWait(0);
    EXPECT_GE(scroll->viewport()->width(), 310) << "beside the bar";
}

} // namespace
} // namespace velko

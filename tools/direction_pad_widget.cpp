#include "tools/direction_pad_widget.h"

#include "tools/overworld_model.h"

#include <QGridLayout>
#include <QStyleOptionFocusRect>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <algorithm>

namespace velko {

namespace {

constexpr const char* kNames[DirectionPad::kDirections] = {
    "Right", "Down right", "Down", "Down left", "Left", "Up left", "Up", "Up right"};

// Points to the right, in a square of two units around the origin.
const QPolygonF& arrowShape()
{
    static const QPolygonF shape({{1.0, 0.0},
                                  {0.1, -0.8},
                                  {0.1, -0.25},
                                  {-0.9, -0.25},
                                  {-0.9, 0.25},
                                  {0.1, 0.25},
                                  {0.1, 0.8}});
    return shape;
}

} // namespace

ArrowButton::ArrowButton(int eighths, QWidget* parent) : QAbstractButton(parent), m_eighths(eighths)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize ArrowButton::sizeHint() const
{
    const int side = std::max(fontMetrics().height() + 10, 26);
    return {side, side};
}

void ArrowButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    option.initFrom(this);
    option.state |= isDown() || isChecked() ? QStyle::State_Sunken : QStyle::State_Raised;
    option.state &= ~QStyle::State_HasFocus;
    painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);
    const QRect inside = rect().adjusted(2, 2, -2, -2);
    if (isChecked())
        painter.fillRect(inside, palette().brush(QPalette::Highlight));
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = inside;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }

    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    painter.rotate(45.0 * m_eighths);
    const double half = 0.3 * std::min(width(), height());
    painter.scale(half, half);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        palette().brush(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText));
    painter.drawPolygon(arrowShape());
}

DirectionPad::DirectionPad(QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    for (int place = 0; place < kDirections; ++place) {
        const int direction = OverworldModel::kButtonDirections[static_cast<std::size_t>(place)];
        auto* button = new ArrowButton(direction, this);
        button->setToolTip(kNames[direction]);
        button->setAccessibleName(kNames[direction]);
        m_buttons.addButton(button, direction);
        const int cell = place < 4 ? place : place + 1; // past the middle
        grid->addWidget(button, cell / 3, cell % 3);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_buttons, &QButtonGroup::idClicked, this, &DirectionPad::directionPressed);
}

void DirectionPad::setDirection(int direction)
{
    // The Tab key comes to the lit button, the arrow keys go on from there.
    for (QAbstractButton* other : m_buttons.buttons())
        other->setFocusPolicy(Qt::ClickFocus);
    button(direction).setFocusPolicy(Qt::StrongFocus);
    button(direction).setChecked(true);
}

} // namespace velko

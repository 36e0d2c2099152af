#include "app/arrow_spin.h"

#include <QFocusEvent>
#include <QHoverEvent>
#include <QStyleOptionFocusRect>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <algorithm>

namespace velko {

namespace {

constexpr int kFirstRepeatMs = 400;
constexpr int kNextRepeatMs = 60;

} // namespace

ArrowSpin::ArrowSpin(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void ArrowSpin::setRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    setPosition(m_position);
    update();
}

void ArrowSpin::setPosition(int position)
{
    m_position = std::clamp(position, m_minimum, m_maximum);
    update();
}

QSize ArrowSpin::sizeHint() const
{
    const int line = fontMetrics().height();
    return {line + 4, std::max(2 * (line * 3 / 4), 24)};
}

QRect ArrowSpin::arrowRect(Arrow arrow) const
{
    const int half = height() / 2;
    return arrow == Arrow::kUp ? QRect(0, 0, width(), half)
                               : QRect(0, half, width(), height() - half);
}

ArrowSpin::Arrow ArrowSpin::arrowAt(QPoint point) const
{
    if (!rect().contains(point))
        return Arrow::kNone;
    return arrowRect(Arrow::kUp).contains(point) ? Arrow::kUp : Arrow::kDown;
}

void ArrowSpin::beginChange(Arrow arrow)
{
    m_held = arrow;
    update();
    step(arrow);
}

void ArrowSpin::step(Arrow arrow)
{
    const int before = m_position;
    setPosition(arrow == Arrow::kUp ? m_position + 1 : m_position - 1);
    if (m_position != before)
        emit positionChanged(m_position);
}

void ArrowSpin::endChange()
{
    if (m_held == Arrow::kNone)
        return;
    m_held = Arrow::kNone;
    m_heldKey = 0;
    m_repeat.stop();
    update();
    emit changeEnded(m_position);
}

void ArrowSpin::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_held != Arrow::kNone) {
        event->ignore();
        return;
    }
    m_hovered = arrowAt(event->position().toPoint());
    m_repeat.start(kFirstRepeatMs, this);
    beginChange(m_hovered);
}

void ArrowSpin::mouseMoveEvent(QMouseEvent* event)
{
    m_hovered = arrowAt(event->position().toPoint());
    update();
}

void ArrowSpin::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_heldKey == 0)
        endChange();
}

void ArrowSpin::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void ArrowSpin::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_repeat.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_repeat.start(kNextRepeatMs, this);
    // Sliding off the arrow pauses, as on every button.
    if (m_hovered == m_held)
        step(m_held);
}

void ArrowSpin::keyPressEvent(QKeyEvent* event)
{
    const bool up = event->key() == Qt::Key_Up;
    if (!up && event->key() != Qt::Key_Down) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (m_held != Arrow::kNone && m_heldKey != event->key())
        return; // one change at a time
    m_heldKey = event->key();
    beginChange(up ? Arrow::kUp : Arrow::kDown);
}

void ArrowSpin::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != m_heldKey)
        QWidget::keyReleaseEvent(event);
    else if (!event->isAutoRepeat())
        endChange();
}

void ArrowSpin::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    endChange();
}

void ArrowSpin::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    endChange();
}

void ArrowSpin::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endChange();
}

bool ArrowSpin::event(QEvent* event)
{
    // While a button is held the mouse events tell where the mouse is, the hover events where it
    // was before.
    const bool mouseHeld = m_repeat.isActive();
    if (event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter) {
        if (!mouseHeld)
            m_hovered = arrowAt(static_cast<QHoverEvent*>(event)->position().toPoint());
    } else if (event->type() == QEvent::HoverLeave && !mouseHeld) {
        m_hovered = Arrow::kNone;
    }
    return QWidget::event(event);
}

void ArrowSpin::drawArrow(QPainter& painter, Arrow arrow) const
{
    QStyleOptionToolButton option;
    option.initFrom(this);
    option.rect = arrowRect(arrow);
    option.state &= ~(QStyle::State_MouseOver | QStyle::State_HasFocus);
    option.state |= m_held == arrow ? QStyle::State_Sunken : QStyle::State_Raised;
    if (m_hovered == arrow && isEnabled())
        option.state |= QStyle::State_MouseOver;
    style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);

    const int size = std::min(option.rect.width(), option.rect.height()) * 2 / 3;
    QRect arrowBox(0, 0, size, size);
    arrowBox.moveCenter(option.rect.center());
    option.rect = arrowBox;
    style()->drawPrimitive(arrow == Arrow::kUp ? QStyle::PE_IndicatorArrowUp
                                               : QStyle::PE_IndicatorArrowDown,
                           &option, &painter, this);
}

void ArrowSpin::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    drawArrow(painter, Arrow::kUp);
    drawArrow(painter, Arrow::kDown);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(1, 1, -1, -1);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
    }
}

} // namespace velko

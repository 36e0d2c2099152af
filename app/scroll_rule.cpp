#include "app/scroll_rule.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace velko {

int stepScroll(ScrollCode code, int carried, const ScrollState& bar, int lineStep)
{
    std::int64_t position = bar.position;
    switch (code) {
    case ScrollCode::kLineUp:
        position -= lineStep;
        break;
    case ScrollCode::kLineDown:
        position += lineStep;
        break;
    case ScrollCode::kPageUp:
        position -= bar.pageSize;
        break;
    case ScrollCode::kPageDown:
        position += bar.pageSize;
        break;
    case ScrollCode::kThumbTrack:
        position = carried;
        break;
    case ScrollCode::kThumbPosition:
    case ScrollCode::kTop:
    case ScrollCode::kBottom:
    case ScrollCode::kEndScroll:
        return kNoScroll;
    }
    const std::int64_t upperLimit =
        std::max<std::int64_t>(0, std::int64_t{bar.maximum} - bar.pageSize + 1);
    return static_cast<int>(std::clamp<std::int64_t>(position, 0, upperLimit));
}

void setScrollRange(QScrollBar& bar, int maximum, int pageSize)
{
    bar.setPageStep(pageSize);
    bar.setRange(0, std::max(0, maximum - pageSize + 1));
}

void showScroll(QScrollBar& bar, const ViewScroll& scroll)
{
    setScrollRange(bar, scroll.range - 1, scroll.page);
    bar.setValue(scroll.position);
}

namespace {

ScrollCode codeOf(int action)
{
    switch (action) {
    case QAbstractSlider::SliderSingleStepSub:
        return ScrollCode::kLineUp;
    case QAbstractSlider::SliderSingleStepAdd:
        return ScrollCode::kLineDown;
    case QAbstractSlider::SliderPageStepSub:
        return ScrollCode::kPageUp;
    case QAbstractSlider::SliderPageStepAdd:
        return ScrollCode::kPageDown;
    case QAbstractSlider::SliderToMinimum:
        return ScrollCode::kTop;
    case QAbstractSlider::SliderToMaximum:
        return ScrollCode::kBottom;
    case QAbstractSlider::SliderMove:
        return ScrollCode::kThumbTrack;
    default:
        return ScrollCode::kEndScroll;
    }
}

} // namespace

void connectScrollBar(QScrollBar& bar, int lineStep, std::function<void(int)> moved)
{
    // "Scroll here" of the bar's own menu sets the value without any action.
    bar.setContextMenuPolicy(Qt::NoContextMenu);
    bar.setSingleStep(lineStep); // by which the wheel goes: less would be lost in rounding
    const auto act = [&bar, lineStep, moved = std::move(moved)](int action) {
        // Qt's maximum is the last position of the thumb; its slider has already moved, its
        // value has not.
        const ScrollState state{bar.minimum(), bar.maximum() + bar.pageStep() - 1, bar.pageStep(),
                                bar.value()};
        const int position = stepScroll(codeOf(action), bar.sliderPosition(), state, lineStep);
        bar.setSliderPosition(position == kNoScroll ? bar.value() : position);
        if (position != kNoScroll)
            moved(position);
    };
    QObject::connect(&bar, &QScrollBar::actionTriggered, &bar, act);
}

void scrollByKey(QKeyEvent& key, QScrollBar& horizontal, QScrollBar& vertical)
{
    const auto act = [&key](QScrollBar& bar, QAbstractSlider::SliderAction action) {
        bar.triggerAction(action);
        key.accept();
    };
    switch (key.key()) {
    case Qt::Key_Left:
        return act(horizontal, QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Right:
        return act(horizontal, QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_Up:
        return act(vertical, QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down:
        return act(vertical, QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp:
        return act(vertical, QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
        return act(vertical, QAbstractSlider::SliderPageStepAdd);
    default:
        return;
    }
}

void scrollByWheel(QWheelEvent& wheel, QScrollBar& horizontal, QScrollBar& vertical)
{
    const QPoint turn = wheel.angleDelta();
    if (std::abs(turn.x()) > std::abs(turn.y())) {
        QCoreApplication::sendEvent(&horizontal, &wheel);
    } else if (wheel.modifiers().testFlag(Qt::ShiftModifier) && &horizontal != &vertical) {
        // Without the Shift key, for which a scroll bar turns whole pages.
        QWheelEvent sideways(wheel.position(), wheel.globalPosition(),
                             wheel.pixelDelta().transposed(), turn.transposed(), wheel.buttons(),
                             wheel.modifiers() & ~Qt::ShiftModifier, wheel.phase(),
                             wheel.inverted());
        QCoreApplication::sendEvent(&horizontal, &sideways);
    } else {
        QCoreApplication::sendEvent(&vertical, &wheel);
    }
}

} // namespace velko

#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace velko {

// A spin control of two arrows and no edit box. The user changes the position by pressing an
// arrow, holding it, or with the Up and Down keys. Only the user's changes are told; the mouse
// wheel is left to what lies behind.
class ArrowSpin : public QWidget {
    Q_OBJECT
public:
    explicit ArrowSpin(QWidget* parent = nullptr);

    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    int position() const { return m_position; }
    // A maximum below the minimum counts as the minimum. Keeps the position inside.
    void setRange(int minimum, int maximum);
    // Takes the nearest position in range. May be called while an arrow is held.
    void setPosition(int position);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    // While the user changes it: the position after each step that moved it.
    void positionChanged(int position);
    // When the change is over, moved or not: the arrow or the key is released, or the control
    // loses the focus or goes away meanwhile.
    void changeEnded(int position);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Arrow { kNone, kUp, kDown };

    QRect arrowRect(Arrow arrow) const;
    Arrow arrowAt(QPoint point) const;
    void drawArrow(class QPainter& painter, Arrow arrow) const;
    void beginChange(Arrow arrow);
    void step(Arrow arrow);
    void endChange();

    int m_minimum = 0;
    int m_maximum = 100;
    int m_position = 0;
    Arrow m_held = Arrow::kNone;    // the arrow being pressed, by mouse or key
    Arrow m_hovered = Arrow::kNone; // the arrow below the mouse
    int m_heldKey = 0;
    QBasicTimer m_repeat;
};

} // namespace velko

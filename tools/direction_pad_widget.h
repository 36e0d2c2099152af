#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QWidget>

namespace velko {

// A button that shows an arrow. While it is checked it is lit.
class ArrowButton final : public QAbstractButton {
    Q_OBJECT
public:
    // `eighths` of a turn clockwise from an arrow to the right.
    explicit ArrowButton(int eighths, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_eighths;
};

// Eight arrows around an empty middle, of which at most one is lit. Directions run clockwise: 0
// right, 1 down-right, 2 down, and so on to 7 up-right.
class DirectionPad final : public QWidget {
    Q_OBJECT
public:
    static constexpr int kDirections = 8;

    explicit DirectionPad(QWidget* parent = nullptr);

    // Lights one direction, 0 to 7.
    void setDirection(int direction);
    int direction() const { return m_buttons.checkedId(); }
    QAbstractButton& button(int direction) const { return *m_buttons.button(direction); }

signals:
    // The user pressed a button, lit or not.
    void directionPressed(int direction);

private:
    QButtonGroup m_buttons; // by direction
};

} // namespace velko

#pragma once

#include <QLabel>

namespace velko {

// A label of one line that takes the width it is given. A text that is longer ends in an ellipsis
// and is shown whole as the label's tool tip.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;
};

} // namespace velko

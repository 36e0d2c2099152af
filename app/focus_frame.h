#pragma once

#include <QAbstractItemView>
#include <QObject>

namespace velko {

// Draws the edge of a list in the highlight colour while the list has the focus, as boxes do.
// Styles leave it to the chosen line to show that, which looks the same without the focus.
class FocusFrame final : public QObject {
public:
    // The list owns the frame.
    explicit FocusFrame(QAbstractItemView& list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_list;
};

} // namespace velko

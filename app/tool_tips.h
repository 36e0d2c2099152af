#pragma once

#include <QObject>

namespace velko {

// Breaks the lines of tool tips. Plain ones stand in a single line, which can be as wide as the
// screen and cover what they tell about. To be installed on the application.
class ToolTips final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace velko

#pragma once

#include <QIcon>
#include <QString>

namespace velko {

// An icon from pixel art of the program's resources. It is blown up by whole factors, so that it
// stays crisp on any screen.
QIcon pixelIcon(const QString& resource);

} // namespace velko

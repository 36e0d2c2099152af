#include "app/icons.h"

#include <QImage>
#include <QPixmap>

// The resources lie in a static library, where nothing would pull them in. The macro must stand
// outside any namespace.
static void initResources()
{
    Q_INIT_RESOURCE(velko);
}

namespace velko {

QIcon pixelIcon(const QString& resource)
{
    initResources();
    const QImage art(resource);
    QIcon icon;
    for (const int factor : {1, 2, 3, 4, 8, 16})
        icon.addPixmap(QPixmap::fromImage(art.scaled(art.size() * factor)));
    return icon;
}

} // namespace velko

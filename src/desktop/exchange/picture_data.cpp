#include "desktop/exchange/picture_data.h"

#include "desktop/drawn/reduced_picture.h"

#include <QImage>

namespace lookfar::desktop {

/// Qt offers an image in every format that it writes, and encodes it only for who asks.
std::unique_ptr<QMimeData> picture_data(const Picture& picture) {
    auto data = std::make_unique<QMimeData>();
    data->setImageData(copied(picture));
    return data;
}

} // namespace lookfar::desktop

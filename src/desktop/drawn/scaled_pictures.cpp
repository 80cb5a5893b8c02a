#include "desktop/drawn/scaled_pictures.h"

#include "desktop/drawn/reduced_picture.h"

namespace lookfar::desktop {

namespace {

/// The picture's own bytes, not copied.
QImage wrapped(const Picture& picture) {
    return {picture.bytes().data(), picture.width(), picture.height(), picture.stride(),
            QImage::Format_RGB888};
}

QImage whole(const Picture& picture) {
    // Scaling four bytes a pixel is several times quicker than scaling three.
    QImage image = wrapped(picture).convertToFormat(QImage::Format_RGB32);
    if (!picture.opacity().empty())
        image.setAlphaChannel(QImage(picture.opacity().data(), picture.width(), picture.height(),
                                     picture.width(), QImage::Format_Alpha8));
    return image;
}

/// An image to scale to this size. A large picture gets there by a small one: a whole one, of four
/// bytes a pixel and made anew for every refresh, takes more time than the scaling.
QImage image_for(const Picture& picture, const QSize& size) {
    const int factor = picture.opacity().empty() ? reduction_for(picture, size) : 1;
    return factor > 1 ? reduced(picture, factor) : whole(picture);
}

} // namespace

const QImage& ScaledPictures::picture_for(const Element& control, const PictureReference& picture,
                                          const QSize& size) {
    Entry& entry = entries_[&control];
    const bool is_ready =
        entry.picture == picture && entry.revision == picture->revision() && entry.size == size;
    if (is_ready)
        return entry.image;
    ++prepared_;
    entry = {.picture = picture,
             .revision = picture->revision(),
             .size = size,
             .image = image_for(*picture, size)
                          .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)};
    return entry.image;
}

bool ScaledPictures::is_up_to_date(const Element& control, const PictureReference& picture) const {
    const auto entry = entries_.find(&control);
    return picture && entry != entries_.end() && entry->second.picture == picture &&
           entry->second.revision == picture->revision();
}

} // namespace lookfar::desktop

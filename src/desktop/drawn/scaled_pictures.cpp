#include "desktop/drawn/scaled_pictures.h"

#include "desktop/drawn/reduced_picture.h"

namespace lookfar::desktop {

namespace {

QImage smoothly_scaled(const QImage& image, const QSize& size) {
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
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
    entry.picture = picture;
    entry.revision = picture->revision();
    entry.size = size;
    prepare(entry);
    return entry.image;
}

/// A large picture is reduced before it is scaled: scaling works on four bytes a pixel and on
/// several threads, and to turn the whole picture into these and to wake the others takes longer
/// than the scaling itself.
void ScaledPictures::prepare(Entry& entry) {
    const Picture& picture = *entry.picture;
    const QSize reduced = reduced_size(picture, entry.size);
    if (!picture.opacity().empty()) {
        entry.image = smoothly_scaled(copied(picture), entry.size);
    } else if (entry.size == natural_size(picture)) {
        entry.image = wrapped(picture);
    } else if (entry.size == reduced) {
        reduce(picture, reduced, entry.image);
    } else {
        reduce(picture, reduced, entry.reduced);
        entry.image = smoothly_scaled(entry.reduced, entry.size);
    }
}

bool ScaledPictures::is_up_to_date(const Element& control, const PictureReference& picture) const {
    const auto entry = entries_.find(&control);
    return picture && entry != entries_.end() && entry->second.picture == picture &&
           entry->second.revision == picture->revision();
}

} // namespace lookfar::desktop

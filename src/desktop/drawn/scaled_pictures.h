#pragma once

#include "runtime/pictures/picture.h"

#include <QImage>
#include <QSize>

#include <cstdint>
#include <unordered_map>

namespace lookfar {
class Element;
}

namespace lookfar::desktop {

/// The pictures of a window's controls at the size in which they are painted. Each is scaled once
/// for a picture object, a revision and a size, into memory that the control's next picture uses
/// again. One that is painted in its natural size is not copied at all.
class ScaledPictures {
  public:
    /// The control's picture in exactly this size, in device pixels.
    const QImage& picture_for(const Element& control, const PictureReference& picture,
                              const QSize& size);
    /// Whether the control's picture was last painted as it stands now; for the benchmarks.
    bool is_up_to_date(const Element& control, const PictureReference& picture) const;
    void drop(const Element& control) { entries_.erase(&control); }
    void drop_all() { entries_.clear(); }

    /// How many pictures were prepared so far; for tests.
    int prepared() const { return prepared_; }

  private:
    struct Entry {
        PictureReference picture;
        std::uint64_t revision = 0;
        QSize size;
        QImage image;
        /// What the image was scaled from.
        QImage reduced;
    };

    static void prepare(Entry& entry);

    std::unordered_map<const Element*, Entry> entries_;
    int prepared_ = 0;
};

} // namespace lookfar::desktop

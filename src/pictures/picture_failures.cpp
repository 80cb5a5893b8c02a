#include "pictures/picture_failures.h"

namespace lookfar {

Failure picture_cut_short() {
    return Failure(FailureKind::invalid_picture, "The picture ends too early.");
}

Failure picture_not_decodable() {
    return Failure(FailureKind::invalid_picture,
                   "The picture is of a kind that can't be decoded, or damaged.");
}

} // namespace lookfar

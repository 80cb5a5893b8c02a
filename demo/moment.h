#pragma once

#include <QDateTime>

namespace lookfar::demo {

/// What a scene depends on beside its size: the same moment gives the same picture.
struct Moment {
    QDateTime time;     ///< Local date and time; the light follows it.
    unsigned frame = 0; ///< Counts the pictures of a camera; whatever moves follows it.
};

/// The time of day in hours, from 0 to below 24.
double hour_of(const Moment& moment);

/// How far something that comes round every so many frames has got, from 0 to below 1.
double progress(const Moment& moment, double frames_per_round, double start = 0.0);

/// A number from 0 to below 1 that looks random and is fixed by its two arguments.
double scattered(unsigned seed, unsigned index);

} // namespace lookfar::demo

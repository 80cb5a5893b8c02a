#pragma once

#include <functional>

namespace lookfar::bench {

/// Seconds that the processor has worked for this process, all its threads together.
double processor_seconds();

/// Processor seconds of one run of the work: the least of several rounds, since a shared machine
/// only ever adds.
double least_processor_seconds(const std::function<void()>& work);

} // namespace lookfar::bench

#pragma once

#include <random>

namespace lookfar {

/// Uniform random numbers, seeded from the clock.
class RandomNumbers {
  public:
    void Randomize(float seed);

    /// A number from 0 up to, not including, 1, in single precision.
    float Rnd();

  private:
    std::mt19937 generator_;
};

} // namespace lookfar

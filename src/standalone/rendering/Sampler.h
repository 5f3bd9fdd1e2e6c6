#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace kuStandalone {

/**
 * Evenly spread numbers from 0 to below 1 for the samples of a pixel: an additive recurrence in
 * eight dimensions (the generalised golden ratio, Roberts 2018), shifted for each pixel. The same
 * pixel and sample give the same numbers, whoever asks and when.
 */
class Sampler {
 public:
  static constexpr std::size_t dimensions = 8;

  Sampler(std::uint32_t pixel, std::uint32_t sample) : _pixel(pixel), _sample(sample) {}

  /** The same sample on its way beyond a transparent surface. */
  Sampler beyond(std::uint32_t layer) const {
    return Sampler(_pixel ^ (0x9E3779B9U * (layer + 1)), _sample);
  }

  float at(std::size_t dimension) const {
    const double shift =
        double(hash(_pixel * dimensions + std::uint32_t(dimension))) / 4294967296.0;
    const double value = shift + double(_sample + 1) * steps()[dimension];
    return std::fmin(float(value - std::floor(value)), 0.99999994f);
  }

 private:
  static const std::array<double, dimensions>& steps() {
    static const std::array<double, dimensions> made = [] {
      double root = 1.0;  // of x^9 = x + 1
      for (int i = 0; i < 50; ++i)
        root = std::pow(1 + root, 1.0 / (dimensions + 1));
      std::array<double, dimensions> list{};
      double power = 1;
      for (double& step : list)
        step = power /= root;
      return list;
    }();
    return made;
  }

  /** Mixes the bits of a number (a finaliser by multiplication and shifts). */
  static std::uint32_t hash(std::uint32_t x) {
    x ^= x >> 16;
    x *= 0x7FEB352DU;
    x ^= x >> 15;
    x *= 0x846CA68BU;
    return x ^ (x >> 16);
  }

  std::uint32_t _pixel, _sample;
};

}  // namespace kuStandalone

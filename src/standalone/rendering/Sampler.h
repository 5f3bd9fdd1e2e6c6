#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace kuStandalone {

/**
 * Evenly spread numbers from 0 to below 1 for the samples of a pixel: in each of eight dimensions
 * the multiples of an irrational number, shifted for each pixel. The numbers are chosen so that the
 * pairs of dimensions 0 and 1, 2 and 3, and so on fill the square evenly after few samples. The
 * same pixel and sample give the same numbers, whoever asks and when.
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
    const double value = shift + double(_sample + 1) * steps[dimension];
    return std::fmin(float(value - std::floor(value)), 0.99999994f);
  }

 private:
  // Broken parts of the square roots of 13, 31, 5, 59, 11, 71, 37 and 41.
  static constexpr std::array<double, dimensions> steps{
      0.605551275463989, 0.567764362830022, 0.236067977499790, 0.681145747868608,
      0.316624790355400, 0.426149773176359, 0.082762530298220, 0.403124237432849};

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

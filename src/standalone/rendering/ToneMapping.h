#pragma once

#include <QVector3D>
#include <algorithm>
#include <cmath>

namespace kuStandalone {

/**
 * Brings linear light of any brightness to what a screen can show: colours up to 0.8 keep their
 * look, what is brighter is compressed towards white. After the "PBR neutral" curve of the Khronos
 * group, made for products whose colours must be true.
 */
inline QVector3D toneMapped(QVector3D color) {
  // In this order, so that what is not a number becomes black.
  for (int channel = 0; channel < 3; ++channel)
    color[channel] = std::min(std::max(0.0f, color[channel]), 65504.0f);
  constexpr float start = 0.8f - 0.04f, desaturation = 0.15f;
  const float least = std::min({color.x(), color.y(), color.z()});
  const float offset = least < 0.08f ? least - 6.25f * least * least : 0.04f;
  color -= QVector3D(offset, offset, offset);
  const float peak = std::max({color.x(), color.y(), color.z()});
  if (peak < start) return color;
  constexpr float rest = 1 - start;
  const float newPeak = 1 - rest * rest / (peak + rest - start);
  color *= newPeak / peak;
  const float mix = 1 - 1 / (desaturation * (peak - newPeak) + 1);
  return color * (1 - mix) + QVector3D(newPeak, newPeak, newPeak) * mix;
}

/** A linear value from 0 to 1 as a byte of sRGB (IEC 61966-2-1). */
inline unsigned char srgbByte(float linear) {
  const float c = std::min(std::max(0.0f, linear), 1.0f);
  const float encoded = c <= 0.0031308f ? 12.92f * c : 1.055f * std::pow(c, 1 / 2.4f) - 0.055f;
  return static_cast<unsigned char>(std::lround(encoded * 255));
}

}  // namespace kuStandalone

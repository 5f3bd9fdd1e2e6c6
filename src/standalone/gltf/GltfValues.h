#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "standalone/gltf/GltfJson.h"
#include "standalone/scene/Transform.h"

/**
 * @file
 * Members of a JSON object as values. A member that is missing gives the fallback; one of another
 * type is refused with its place.
 */
namespace kuStandalone {

/** A whole number from @p least to @p most. */
std::int64_t wholeNumber(const QJsonValue& value, std::int64_t fallback, std::int64_t least,
                         std::int64_t most, const std::string& place);

/** An index of a list of @p count entries; without a value -1. */
int indexIn(const QJsonValue& value, int count, const std::string& place);

/** An index that must be there. */
int neededIndexIn(const QJsonValue& value, int count, const std::string& place);

bool flagOf(const QJsonValue& value, bool fallback, const std::string& place);
std::string textOf(const QJsonValue& value, const std::string& place);
QJsonObject objectOf(const QJsonValue& value, const std::string& place);
QJsonArray arrayOf(const QJsonValue& value, const std::string& place);

/** Translation, rotation, scale and matrix. @param prefix the place of the members, with a ".". */
Transform transformOf(const QJsonObject& json, const std::string& prefix);

/** Sets exactly N finite numbers. */
template <std::size_t N>
void readNumbers(const QJsonValue& value, std::array<double, N>& numbers,
                 const std::string& place) {
  if (value.isUndefined()) return;
  const QJsonArray list = value.toArray();
  bool fits = list.size() == int(N);
  for (std::size_t i = 0; fits && i < N; ++i) {
    const QJsonValue number = list[int(i)];
    numbers[i] = number.toDouble();
    fits = number.isDouble() && std::isfinite(numbers[i]);
  }
  if (!fits) throw GltfRefusal(place, "is not " + std::to_string(N) + " numbers");
}

}  // namespace kuStandalone

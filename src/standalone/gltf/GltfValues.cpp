#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {

std::int64_t wholeNumber(const QJsonValue& value, std::int64_t fallback, std::int64_t least,
                         std::int64_t most, const std::string& place) {
  if (value.isUndefined()) return fallback;
  const double number = value.toDouble();
  if (!value.isDouble() || !(number >= double(least) && number <= double(most)) ||
      number != std::floor(number)) {
    throw GltfRefusal(place, "is no whole number in range");
  }
  return std::int64_t(number);
}

int indexIn(const QJsonValue& value, int count, const std::string& place) {
  return value.isUndefined() ? -1 : neededIndexIn(value, count, place);
}

int neededIndexIn(const QJsonValue& value, int count, const std::string& place) {
  const double index = value.toDouble(-1);
  if (!value.isDouble() || index != std::floor(index)) throw GltfRefusal(place, "is no index");
  if (index < 0 || index >= count) {
    throw GltfRefusal(place, "there are " + std::to_string(count) + " and no such one");
  }
  return int(index);
}

bool flagOf(const QJsonValue& value, bool fallback, const std::string& place) {
  if (value.isUndefined()) return fallback;
  if (!value.isBool()) throw GltfRefusal(place, "is neither true nor false");
  return value.toBool();
}

std::string textOf(const QJsonValue& value, const std::string& place) {
  if (value.isUndefined()) return {};
  if (!value.isString()) throw GltfRefusal(place, "is no text");
  return value.toString().toStdString();
}

QJsonObject objectOf(const QJsonValue& value, const std::string& place) {
  if (value.isUndefined()) return {};
  if (!value.isObject()) throw GltfRefusal(place, "is no object");
  return value.toObject();
}

QJsonArray arrayOf(const QJsonValue& value, const std::string& place) {
  if (value.isUndefined()) return {};
  if (!value.isArray()) throw GltfRefusal(place, "is no array");
  return value.toArray();
}

Transform transformOf(const QJsonObject& json, const std::string& prefix) {
  Transform transform;
  const auto read = [&](const char* name, auto& numbers) {
    const QJsonValue value = json[QLatin1String(name)];
    if (!value.isUndefined()) readNumbers(value, numbers, prefix + name);
  };
  read("translation", transform.translation);
  read("rotation", transform.rotation);
  read("scale", transform.scale);
  if (json.contains(QLatin1String("matrix"))) read("matrix", transform.matrix.emplace());
  return transform;
}

}  // namespace kuStandalone

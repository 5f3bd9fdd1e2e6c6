#include "standalone/gltf/AccessorReader.h"

#include <QtEndian>
#include <algorithm>
#include <array>

#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

constexpr std::int64_t maximalNumber = std::int64_t(1) << 40;

struct ComponentType {
  int number;
  int bytes;
};
constexpr std::array componentTypes = {ComponentType{5120, 1}, ComponentType{5121, 1},
                                       ComponentType{5122, 2}, ComponentType{5123, 2},
                                       ComponentType{5125, 4}, ComponentType{5126, 4}};

struct ElementType {
  const char* name;
  int components;
};
constexpr std::array elementTypes = {ElementType{"SCALAR", 1}, ElementType{"VEC2", 2},
                                     ElementType{"VEC3", 3}, ElementType{"VEC4", 4}};

int bytesOf(int componentType, const std::string& place) {
  for (const ComponentType& type : componentTypes) {
    if (type.number == componentType) return type.bytes;
  }
  throw GltfRefusal(place, "is no component type");
}

int componentsOf(const QString& type, const std::string& place) {
  for (const ElementType& element : elementTypes) {
    if (type == QLatin1String(element.name)) return element.components;
  }
  throw GltfRefusal(place, "is not supported here");
}

float fraction(float value, float most) { return std::max(value / most, -1.0F); }

float numberAt(const char* data, int componentType, bool normalised) {
  switch (componentType) {
    case 5120: {
      const auto value = float(qFromLittleEndian<qint8>(data));
      return normalised ? fraction(value, 127) : value;
    }
    case 5121: {
      const auto value = float(qFromLittleEndian<quint8>(data));
      return normalised ? fraction(value, 255) : value;
    }
    case 5122: {
      const auto value = float(qFromLittleEndian<qint16>(data));
      return normalised ? fraction(value, 32767) : value;
    }
    case 5123: {
      const auto value = float(qFromLittleEndian<quint16>(data));
      return normalised ? fraction(value, 65535) : value;
    }
    case 5125:
      return float(qFromLittleEndian<quint32>(data));
    default:
      return qFromLittleEndian<float>(data);
  }
}

std::uint32_t wholeAt(const char* data, int componentType) {
  switch (componentType) {
    case 5121:
      return qFromLittleEndian<quint8>(data);
    case 5123:
      return qFromLittleEndian<quint16>(data);
    default:
      return qFromLittleEndian<quint32>(data);
  }
}

}  // namespace

AccessorReader::AccessorReader(const GltfSource& source)
    : _source(source),
      _accessors(source.root["accessors"].toArray()),
      _views(source.root["bufferViews"].toArray()) {}

AccessorReader::View AccessorReader::view(int index) const {
  const std::string prefix = gltfPlace("accessors", index) + ".";
  const QJsonObject json = _accessors[index].toObject();
  if (json.contains("sparse")) throw GltfRefusal(prefix + "sparse", "is not supported");
  if (!json.contains("bufferView")) throw GltfRefusal(prefix + "bufferView", "is missing");
  View view;
  view.componentType =
      int(wholeNumber(json["componentType"], 0, 0, 65535, prefix + "componentType"));
  const int bytes = bytesOf(view.componentType, prefix + "componentType");
  view.components = componentsOf(json["type"].toString(), prefix + "type");
  view.count = wholeNumber(json["count"], 0, 1, maximalNumber, prefix + "count");
  if (view.count == 0) throw GltfRefusal(prefix + "count", "is missing");
  view.normalised = flagOf(json["normalized"], false, prefix + "normalized");

  // The views themselves have been checked against their buffers.
  const QJsonObject buffer = _views[json["bufferView"].toInt()].toObject();
  const std::int64_t element = std::int64_t(bytes) * view.components;
  view.stride = std::int64_t(buffer["byteStride"].toDouble(double(element)));
  const std::int64_t offset =
      wholeNumber(json["byteOffset"], 0, 0, maximalNumber, prefix + "byteOffset");
  const auto length = std::int64_t(buffer["byteLength"].toDouble());
  if (offset + element > length || (view.count - 1) > (length - offset - element) / view.stride) {
    throw GltfRefusal(gltfPlace("accessors", index), "reaches beyond its buffer view");
  }
  view.data = _source.buffers[std::size_t(buffer["buffer"].toInt())].constData() +
              std::int64_t(buffer["byteOffset"].toDouble(0)) + offset;
  return view;
}

std::vector<float> AccessorReader::floats(const View& view) const {
  const int bytes = bytesOf(view.componentType, {});
  std::vector<float> numbers;
  numbers.reserve(std::size_t(view.count) * std::size_t(view.components));
  for (std::int64_t at = 0; at < view.count; ++at) {
    const char* element = view.data + at * view.stride;
    for (int component = 0; component < view.components; ++component) {
      numbers.push_back(numberAt(element + component * bytes, view.componentType, view.normalised));
    }
  }
  return numbers;
}

std::vector<std::uint32_t> AccessorReader::wholes(const View& view) const {
  std::vector<std::uint32_t> numbers;
  numbers.reserve(std::size_t(view.count));
  for (std::int64_t at = 0; at < view.count; ++at)
    numbers.push_back(wholeAt(view.data + at * view.stride, view.componentType));
  return numbers;
}

std::uint32_t AccessorReader::largest(const View& view) const {
  std::uint32_t most = 0;
  for (std::int64_t at = 0; at < view.count; ++at)
    most = std::max(most, wholeAt(view.data + at * view.stride, view.componentType));
  return most;
}

}  // namespace kuStandalone

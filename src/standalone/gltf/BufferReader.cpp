#include "standalone/gltf/BufferReader.h"

#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

constexpr std::int64_t maximalNumber = std::int64_t(1) << 40;

std::int64_t neededLength(const QJsonObject& json, const std::string& place) {
  if (!json.contains("byteLength")) throw GltfRefusal(place, "is missing");
  return wholeNumber(json["byteLength"], 0, 1, maximalNumber, place);
}

QByteArray readBuffer(int index, const QJsonObject& json, const QByteArray& binary,
                      UriReader& files) {
  const std::string place = gltfPlace("buffers", index, "uri");
  if (json.contains("uri")) {
    textOf(json["uri"], place);
    return files.read(json["uri"].toString(), place);
  }
  if (index != 0 || binary.isNull()) throw GltfRefusal(place, "is missing");
  return binary;
}

QByteArray readImage(int index, const QJsonObject& json, UriReader& files) {
  const std::string place = gltfPlace("images", index, "uri");
  if (json.contains("bufferView") == json.contains("uri")) {
    throw GltfRefusal(gltfPlace("images", index), "has not one of 'uri' and 'bufferView'");
  }
  textOf(json["uri"], place);
  return json.contains("uri") ? files.read(json["uri"].toString(), place) : QByteArray();
}

void checkView(int index, const QJsonObject& json, const std::vector<QByteArray>& buffers) {
  const std::string prefix = gltfPlace("bufferViews", index) + ".";
  const int buffer = neededIndexIn(json["buffer"], int(buffers.size()), prefix + "buffer");
  const std::int64_t length = neededLength(json, prefix + "byteLength");
  const std::int64_t offset =
      wholeNumber(json["byteOffset"], 0, 0, maximalNumber, prefix + "byteOffset");
  wholeNumber(json["byteStride"], 0, 4, 252, prefix + "byteStride");
  if (offset + length > buffers[std::size_t(buffer)].size()) {
    throw GltfRefusal(gltfPlace("bufferViews", index), "reaches beyond its buffer");
  }
}

}  // namespace

void readBuffers(GltfSource& source, const QByteArray& binary, UriReader& files) {
  int index = 0;
  for (const QJsonValue& value : source.root.value("buffers").toArray()) {
    QByteArray bytes = readBuffer(index, value.toObject(), binary, files);
    const std::string place = gltfPlace("buffers", index, "byteLength");
    const std::int64_t length = neededLength(value.toObject(), place);
    if (length > bytes.size()) {
      throw GltfRefusal(place, "there are only " + std::to_string(bytes.size()) + " bytes");
    }
    bytes.truncate(int(length));
    source.buffers.push_back(std::move(bytes));
    ++index;
  }
  index = 0;
  for (const QJsonValue& view : source.root.value("bufferViews").toArray())
    checkView(index++, view.toObject(), source.buffers);
  index = 0;
  for (const QJsonValue& image : source.root.value("images").toArray()) {
    source.images.push_back(readImage(index, image.toObject(), files));
    ++index;
  }
}

}  // namespace kuStandalone

#include "standalone/gltf/AnimationWriter.h"

#include <QtEndian>
#include <algorithm>
#include <array>

namespace kuStandalone {
namespace {

constexpr std::array paths = {"translation", "rotation", "scale"};
constexpr std::array interpolations = {"LINEAR", "STEP", "CUBICSPLINE"};
constexpr int floatType = 5126;

/** Appends an entry to a list of the text. Answers its index. */
int append(QJsonObject& root, const char* list, const QJsonObject& entry) {
  QJsonArray entries = root.value(QLatin1String(list)).toArray();
  entries.append(entry);
  root[QLatin1String(list)] = entries;
  return entries.size() - 1;
}

class AnimationWriter {
 public:
  AnimationWriter(const NodeLayout& layout, GltfDraft& draft)
      : _layout(layout), _draft(draft), _buffer(draft.root.value("buffers").toArray().size()) {}

  void write(const AnimationClip& clip) {
    _channels = {};
    _samplers = {};
    for (const AnimationChannel& channel : clip.channels)
      writeChannel(channel);
    if (_channels.isEmpty()) return;
    append(_draft.root, "animations",
           {{"name", QString::fromStdString(clip.name)},
            {"channels", _channels},
            {"samplers", _samplers}});
  }

  void finish(GltfSource& data) {
    if (_bytes.isEmpty()) return;
    append(_draft.root, "buffers", {{"byteLength", _bytes.size()}});
    data.buffers.resize(std::size_t(_buffer));
    data.buffers.push_back(_bytes);
  }

 private:
  void writeChannel(const AnimationChannel& channel) {
    const int node = _layout.indexOf(channel.node);
    if (node < 0 || channel.times.empty() || channel.values.empty()) return;
    const bool rotation = channel.property == AnimationChannel::Property::Rotation;
    const auto [least, most] = std::minmax_element(channel.times.begin(), channel.times.end());
    const int input = accessor(channel.times, 1, "SCALAR",
                               {{"min", QJsonArray{jsonNumber(double(*least))}},
                                {"max", QJsonArray{jsonNumber(double(*most))}}});
    const int output = rotation ? accessor(channel.values, 4, "VEC4", {})
                                : accessor(channel.values, 3, "VEC3", {});
    _channels.append(QJsonObject{
        {"sampler", _samplers.size()},
        {"target", QJsonObject{{"node", node}, {"path", paths[std::size_t(channel.property)]}}}});
    _samplers.append(
        QJsonObject{{"input", input},
                    {"output", output},
                    {"interpolation", interpolations[std::size_t(channel.interpolation)]}});
  }

  int accessor(const std::vector<float>& numbers, int width, const char* type, QJsonObject entry) {
    const int offset = _bytes.size();
    for (const float number : numbers) {
      char bytes[sizeof number];
      qToLittleEndian(number, bytes);
      _bytes.append(bytes, sizeof bytes);
    }
    entry["bufferView"] = append(
        _draft.root, "bufferViews",
        {{"buffer", _buffer}, {"byteOffset", offset}, {"byteLength", _bytes.size() - offset}});
    entry["componentType"] = floatType;
    entry["count"] = int(numbers.size()) / width;
    entry["type"] = type;
    return append(_draft.root, "accessors", entry);
  }

  const NodeLayout& _layout;
  GltfDraft& _draft;
  int _buffer;
  QByteArray _bytes;
  QJsonArray _channels, _samplers;
};

}  // namespace

void writeAnimations(const Scene& scene, const NodeLayout& layout, GltfDraft& draft,
                     GltfSource& data) {
  AnimationWriter writer(layout, draft);
  for (const AnimationClip& clip : scene.animations) {
    if (clip.source < 0) writer.write(clip);
  }
  writer.finish(data);
}

}  // namespace kuStandalone

#include "standalone/gltf/AnimationReader.h"

#include <optional>

#include "standalone/gltf/AccessorReader.h"
#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

using Property = AnimationChannel::Property;
using Interpolation = AnimationChannel::Interpolation;

constexpr int floatType = 5126, unsignedIntType = 5125;

struct PathRule {
  const char* name;
  Property property;
  int components;
};
constexpr std::array paths = {PathRule{"translation", Property::Translation, 3},
                              PathRule{"rotation", Property::Rotation, 4},
                              PathRule{"scale", Property::Scale, 3}};

struct InterpolationRule {
  const char* name;
  Interpolation interpolation;
};
constexpr std::array interpolations = {
    InterpolationRule{"LINEAR", Interpolation::Linear},
    InterpolationRule{"STEP", Interpolation::Step},
    InterpolationRule{"CUBICSPLINE", Interpolation::CubicSpline}};

const PathRule* findPath(const QString& name) {
  for (const PathRule& path : paths) {
    if (name == QLatin1String(path.name)) return &path;
  }
  return nullptr;
}

Interpolation interpolationOf(const QJsonValue& value, const std::string& place) {
  const QString name = value.isUndefined() ? QStringLiteral("LINEAR") : value.toString();
  for (const InterpolationRule& rule : interpolations) {
    if (name == QLatin1String(rule.name)) return rule.interpolation;
  }
  throw GltfRefusal(place, "is no interpolation");
}

class AnimationReader {
 public:
  AnimationReader(const GltfSource& source, const std::vector<osg::NodePtr>& nodes,
                  GltfWarnings& warnings)
      : _accessors(source), _nodes(nodes), _warnings(warnings) {}

  AnimationClip read(int index, const QJsonObject& json) {
    const std::string place = gltfPlace("animations", index);
    AnimationClip clip;
    clip.name = textOf(json["name"], place + ".name");
    clip.source = index;
    const QJsonArray samplers = arrayOf(json["samplers"], place + ".samplers");
    int number = 0;
    for (const QJsonValue& value : arrayOf(json["channels"], place + ".channels")) {
      const std::string where = place + ".channels[" + std::to_string(number++) + "]";
      auto channel = readChannel(objectOf(value, where), samplers, where, place);
      if (channel) clip.channels.push_back(std::move(*channel));
    }
    return clip;
  }

 private:
  /** None for a channel that is left alone. */
  std::optional<AnimationChannel> readChannel(const QJsonObject& json, const QJsonArray& samplers,
                                              const std::string& place, const std::string& clip) {
    const int sampler = neededIndexIn(json["sampler"], samplers.size(), place + ".sampler");
    const QJsonObject target = objectOf(json["target"], place + ".target");
    const PathRule* path = findPath(target["path"].toString());
    const int node = indexIn(target["node"], int(_nodes.size()), place + ".target.node");
    if (!path) {
      _warnings.add(place + ".target.path",
                    "'" + target["path"].toString().toStdString() + "' is not supported");
      return std::nullopt;
    }
    if (node < 0 || !_nodes[std::size_t(node)]) {
      _warnings.add(place + ".target.node", "is no node of the scene");
      return std::nullopt;
    }
    AnimationChannel channel;
    channel.node = _nodes[std::size_t(node)];
    channel.property = path->property;
    const std::string where = clip + ".samplers[" + std::to_string(sampler) + "]";
    readSampler(objectOf(samplers[sampler], where), *path, channel, where);
    return channel;
  }

  void readSampler(const QJsonObject& json, const PathRule& path, AnimationChannel& channel,
                   const std::string& place) {
    channel.interpolation = interpolationOf(json["interpolation"], place + ".interpolation");
    const auto input =
        _accessors.view(neededIndexIn(json["input"], _accessors.count(), place + ".input"));
    const auto output =
        _accessors.view(neededIndexIn(json["output"], _accessors.count(), place + ".output"));
    if (input.components != 1 || input.componentType != floatType) {
      throw GltfRefusal(place + ".input", "the accessor is of the wrong type");
    }
    const bool fraction = path.property == Property::Rotation && output.normalised &&
                          output.componentType != unsignedIntType;
    if (output.components != path.components || (output.componentType != floatType && !fraction)) {
      throw GltfRefusal(place + ".output", "the accessor is of the wrong type");
    }
    const int each = channel.interpolation == Interpolation::CubicSpline ? 3 : 1;
    if (output.count != input.count * each) {
      throw GltfRefusal(place + ".output", "does not fit the count of times");
    }
    countNumbers(input.count * (1 + each * path.components), place);
    channel.times = _accessors.floats(input);
    channel.values = _accessors.floats(output);
    checkNumbers(channel, place);
  }

  /** Channels may share a sampler, so a short file could ask for any amount of memory. */
  void countNumbers(std::int64_t numbers, const std::string& place) {
    constexpr std::int64_t most = 200'000'000;
    _numbers += numbers;
    if (_numbers > most) throw GltfRefusal(place, "the animations are too large");
  }

  static void checkNumbers(const AnimationChannel& channel, const std::string& place) {
    float last = -1;
    for (const float time : channel.times) {
      if (time < 0 || !(time > last) || !std::isfinite(time)) {
        throw GltfRefusal(place + ".input", "the times do not rise from 0");
      }
      last = time;
    }
    for (const float value : channel.values) {
      if (!std::isfinite(value)) throw GltfRefusal(place + ".output", "has a value without size");
    }
  }

  AccessorReader _accessors;
  const std::vector<osg::NodePtr>& _nodes;
  GltfWarnings& _warnings;
  std::int64_t _numbers = 0;
};

}  // namespace

void readAnimations(const GltfSource& source, const std::vector<osg::NodePtr>& nodes, Scene& scene,
                    GltfWarnings& warnings) {
  AnimationReader reader(source, nodes, warnings);
  int index = 0;
  for (const QJsonValue& value : source.root["animations"].toArray())
    scene.animations.push_back(reader.read(index++, value.toObject()));
}

}  // namespace kuStandalone

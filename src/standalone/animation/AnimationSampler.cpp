#include "standalone/animation/AnimationSampler.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

using Value = std::array<double, 4>;
using Interpolation = AnimationChannel::Interpolation;
using Property = AnimationChannel::Property;

/** The keys of a channel that have all their numbers. */
class Keys {
 public:
  explicit Keys(const AnimationChannel& channel)
      : _channel(channel),
        _width(channel.property == Property::Rotation ? 4 : 3),
        _parts(channel.interpolation == Interpolation::CubicSpline ? 3 : 1),
        _count(std::min(channel.times.size(), channel.values.size() / (_width * _parts))) {}

  std::size_t count() const { return _count; }
  double time(std::size_t key) const { return static_cast<double>(_channel.times[key]); }

  Value value(std::size_t key) const { return part(key, _parts / 2); }
  Value inTangent(std::size_t key) const { return part(key, 0); }
  Value outTangent(std::size_t key) const { return part(key, 2); }

  /** The last key at or before the time, and the first one for a time before all. */
  std::size_t before(double time) const {
    const auto first = _channel.times.begin();
    const auto last = first + static_cast<std::ptrdiff_t>(_count);
    const auto after =
        std::upper_bound(first, last, time, [](double t, float key) { return t < double(key); });
    return after == first ? 0 : static_cast<std::size_t>(after - first) - 1;
  }

 private:
  Value part(std::size_t key, std::size_t index) const {
    Value result{};
    const std::size_t start = (key * _parts + index) * _width;
    std::copy_n(_channel.values.begin() + static_cast<std::ptrdiff_t>(start), _width,
                result.begin());
    return result;
  }

  const AnimationChannel& _channel;
  std::size_t _width;
  std::size_t _parts;
  std::size_t _count;
};

/** The sum of up to four values, each with its weight. */
Value weighted(std::initializer_list<std::pair<double, Value>> terms) {
  Value result{};
  for (const auto& term : terms) {
    for (std::size_t i = 0; i < result.size(); ++i)
      result[i] += term.first * term.second[i];
  }
  return result;
}

double dot(const Value& a, const Value& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
}

/** The way between two rotations on the shorter arc, at constant speed. */
Value slerp(const Value& from, const Value& to, double fraction) {
  const double cosine = dot(from, to);
  const double sign = cosine < 0 ? -1 : 1;
  const double angle = std::acos(std::min(1.0, std::abs(cosine)));
  const double sine = std::sin(angle);
  if (sine < 1e-6) return weighted({{1 - fraction, from}, {sign * fraction, to}});
  return weighted({{std::sin((1 - fraction) * angle) / sine, from},
                   {sign * std::sin(fraction * angle) / sine, to}});
}

/** Hermite spline; the tangents are per second, so the length of the step scales them. */
Value spline(const Keys& keys, std::size_t key, double t, double step) {
  const double t2 = t * t;
  const double t3 = t2 * t;
  return weighted({{2 * t3 - 3 * t2 + 1, keys.value(key)},
                   {step * (t3 - 2 * t2 + t), keys.outTangent(key)},
                   {-2 * t3 + 3 * t2, keys.value(key + 1)},
                   {step * (t3 - t2), keys.inTangent(key + 1)}});
}

Value between(const AnimationChannel& channel, const Keys& keys, double time) {
  const std::size_t key = keys.before(time);
  const double passed = time - keys.time(key);
  if (key + 1 >= keys.count() || !(passed > 0)) return keys.value(key);
  const double step = keys.time(key + 1) - keys.time(key);
  switch (channel.interpolation) {
    case Interpolation::Step:
      return keys.value(key);
    case Interpolation::CubicSpline:
      return spline(keys, key, passed / step, step);
    case Interpolation::Linear:
      break;
  }
  const double t = passed / step;
  if (channel.property == Property::Rotation) {
    return slerp(keys.value(key), keys.value(key + 1), t);
  }
  return weighted({{1 - t, keys.value(key)}, {t, keys.value(key + 1)}});
}

bool isFinite(const Value& value) {
  return std::all_of(value.begin(), value.end(), [](double x) { return std::isfinite(x); });
}

NodePose& poseOf(const osg::NodePtr& node, std::vector<NodePose>& poses) {
  const auto found = std::find_if(poses.begin(), poses.end(),
                                  [&](const NodePose& pose) { return pose.node == node; });
  if (found != poses.end()) return *found;
  poses.push_back({node, SceneNode::of(node).transform()});
  return poses.back();
}

void apply(Property property, const Value& value, Transform& transform) {
  switch (property) {
    case Property::Translation:
      transform.translation = {value[0], value[1], value[2]};
      break;
    case Property::Rotation:
      transform.rotation = value;
      break;
    case Property::Scale:
      transform.scale = {value[0], value[1], value[2]};
      break;
  }
}

}  // namespace

double durationOf(const AnimationClip& clip) {
  double duration = 0;
  for (const AnimationChannel& channel : clip.channels) {
    const Keys keys(channel);
    if (keys.count() == 0) continue;
    const double last = keys.time(keys.count() - 1);
    if (std::isfinite(last)) duration = std::max(duration, last);
  }
  return duration;
}

std::optional<Value> sample(const AnimationChannel& channel, double time) {
  const Keys keys(channel);
  if (keys.count() == 0) return std::nullopt;
  Value value = between(channel, keys, time);
  if (!isFinite(value)) return std::nullopt;
  if (channel.property != Property::Rotation) return value;
  const double length = std::sqrt(dot(value, value));
  if (!(length > 0)) return std::nullopt;
  for (double& x : value)
    x /= length;
  return value;
}

std::vector<NodePose> sample(const AnimationClip& clip, double time) {
  std::vector<NodePose> poses;
  for (const AnimationChannel& channel : clip.channels) {
    if (!channel.node || SceneNode::of(channel.node).transform().matrix) continue;
    const std::optional<Value> value = sample(channel, time);
    if (value) apply(channel.property, *value, poseOf(channel.node, poses).transform);
  }
  return poses;
}

}  // namespace kuStandalone

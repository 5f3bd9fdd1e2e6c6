#include "standalone/gltf/PrimitiveCheck.h"

#include <map>

#include "standalone/gltf/AccessorReader.h"
#include "standalone/gltf/GltfValues.h"

namespace kuStandalone {
namespace {

constexpr int byteType = 5121, shortType = 5123, intType = 5125, floatType = 5126;

/** What an attribute whose name starts so consists of. */
struct AttributeRule {
  const char* start;
  int leastComponents, mostComponents;
  bool floatsOnly;
};
constexpr std::array attributeRules = {
    AttributeRule{"POSITION", 3, 3, true}, AttributeRule{"NORMAL", 3, 3, true},
    AttributeRule{"TANGENT", 4, 4, true},  AttributeRule{"TEXCOORD_", 2, 2, false},
    AttributeRule{"COLOR_", 3, 4, false},  AttributeRule{"JOINTS_", 4, 4, false},
    AttributeRule{"WEIGHTS_", 4, 4, false}};

class PrimitiveCheck {
 public:
  PrimitiveCheck(const GltfSource& source, GltfWarnings& warnings)
      : _accessors(source), _warnings(warnings) {}

  void check(const QJsonObject& json, const std::string& place) {
    wholeNumber(json["mode"], 4, 0, 6, place + ".mode");
    if (!json["targets"].isUndefined()) {
      _warnings.addOnce(place + ".targets", "morph targets are left alone");
    }
    const QJsonObject attributes = objectOf(json["attributes"], place + ".attributes");
    std::int64_t vertices = -1;
    for (auto one = attributes.begin(); one != attributes.end(); ++one) {
      const std::string where = place + ".attributes." + one.key().toStdString();
      const std::int64_t count = checkAttribute(one.key(), *one, where);
      if (vertices >= 0 && count != vertices) {
        throw GltfRefusal(where, "has another count than the other attributes");
      }
      vertices = count;
    }
    if (!json["indices"].isUndefined()) checkIndices(json["indices"], vertices, place + ".indices");
  }

 private:
  std::int64_t checkAttribute(const QString& name, const QJsonValue& value,
                              const std::string& place) {
    const auto& view = viewOf(neededIndexIn(value, _accessors.count(), place));
    for (const AttributeRule& rule : attributeRules) {
      if (!name.startsWith(QLatin1String(rule.start))) continue;
      if (view.components < rule.leastComponents || view.components > rule.mostComponents ||
          (rule.floatsOnly && view.componentType != floatType)) {
        throw GltfRefusal(place, "the accessor is of the wrong type");
      }
    }
    return view.count;
  }

  void checkIndices(const QJsonValue& value, std::int64_t vertices, const std::string& place) {
    const int index = neededIndexIn(value, _accessors.count(), place);
    const auto& view = viewOf(index);
    const int type = view.componentType;
    if (view.components != 1 || (type != byteType && type != shortType && type != intType)) {
      throw GltfRefusal(place, "the accessor is of the wrong type");
    }
    auto known = _largest.find(index);
    if (known == _largest.end()) {
      known = _largest.emplace(index, _accessors.largest(view)).first;
    }
    if (vertices >= 0 && std::int64_t(known->second) >= vertices) {
      throw GltfRefusal(place, "names vertex " + std::to_string(known->second) + " of " +
                                   std::to_string(vertices));
    }
  }

  const AccessorReader::View& viewOf(int index) {
    const auto known = _views.find(index);
    if (known != _views.end()) return known->second;
    return _views.emplace(index, _accessors.view(index)).first->second;
  }

  AccessorReader _accessors;
  GltfWarnings& _warnings;
  std::map<int, AccessorReader::View> _views;
  std::map<int, std::uint32_t> _largest;
};

}  // namespace

void checkPrimitives(const GltfSource& source, GltfWarnings& warnings) {
  PrimitiveCheck check(source, warnings);
  int mesh = 0;
  for (const QJsonValue& value : source.root["meshes"].toArray()) {
    int primitive = 0;
    const QJsonObject json = value.toObject();
    if (!json["weights"].isUndefined()) {
      warnings.addOnce(gltfPlace("meshes", mesh, "weights"), "morph targets are left alone");
    }
    for (const QJsonValue& one :
         arrayOf(json["primitives"], gltfPlace("meshes", mesh, "primitives"))) {
      const std::string place =
          gltfPlace("meshes", mesh, "primitives[" + std::to_string(primitive++) + "]");
      check.check(objectOf(one, place), place);
    }
    ++mesh;
  }
}

}  // namespace kuStandalone

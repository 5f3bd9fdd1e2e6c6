#include "model/kuVariantSet.h"

#include <algorithm>

#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuSnapshotRevision.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSetKeeper.h"

namespace {

template <class List>
void appendOnce(List& list, const QString& name) {
  if (std::find(list.begin(), list.end(), name) == list.end()) list.push_back(name);
}

/** Whether the name was there. */
template <class List>
bool erase(List& list, const QString& name) {
  const auto found = std::find(list.begin(), list.end(), name);
  if (found == list.end()) return false;
  list.erase(found);
  return true;
}

QString valueAt(const std::map<QString, QString>& map, const QString& key) {
  const auto found = map.find(key);
  return found == map.end() ? QString() : found->second;
}

std::uint64_t snapshotRevision = 0;

}  // namespace

std::uint64_t kuSnapshotRevision() { return snapshotRevision; }

std::uint32_t kuVariantSet::_nextId = 1;

// The number is counted on before it is taken, so the first set has 2; groups do it the other way
// round.
kuVariantSet::kuVariantSet() : _id(++_nextId) {}

kuVariantSet::kuVariantSet(const QString& setName) : name(setName), _id(++_nextId) {}

kuVariantSet::~kuVariantSet() {
  for (Keeper* keeper = keepers.innermost; keeper; keeper = keeper->outer())
    keeper->keepCopy();
  if (group) group->remove(this);
}

void kuVariantSet::setName(const QString& newName) {
  kuMessage message;
  message.set("oldName", getName().toStdString(), true);
  message.set("newName", newName.toStdString(), true);
  message.set("groupName", group ? group->getName().toStdString() : std::string("ungrouped"), true);
  name.set(newName);
  kuController::call("variantSetRenamed", message, 0);
}

void kuVariantSet::setHotkey(const QString& text) {
  hotkey = text;
  updateShortcut();
}

void kuVariantSet::updateShortcut() {
  kuVariants::mapHotkey(hotkey, shortcutKey, shortcutModifier);
}

void kuVariantSet::appendToScript(const QString& text) {
  if (!script.isEmpty()) script += '\n';
  script += text;
}

void kuVariantSet::addViewpoint(const QString& viewpoint) { appendOnce(viewpoints, viewpoint); }

void kuVariantSet::removeViewpoint(const QString& viewpoint) {
  const QString removed = viewpoint;  // it may be an entry of the list
  if (erase(viewpoints, removed) && removed == defaultViewpoint) defaultViewpoint = QString();
}

void kuVariantSet::addAnimation(const QString& animation) { appendOnce(animations, animation); }

void kuVariantSet::removeAnimation(const QString& animation) { erase(animations, animation); }

void kuVariantSet::addGeometry(const QString& geometry) { appendOnce(geometries, geometry); }

void kuVariantSet::removeGeometry(const QString& geometry) { erase(geometries, geometry); }

void kuVariantSet::addTargetNodeName(const QString& node) { appendOnce(targetNodeNames, node); }

void kuVariantSet::addValue(const QString& key, const QString& value) { values[key] = value; }

void kuVariantSet::removeValue(const QString& key) { values.erase(key); }

QString kuVariantSet::getValue(const QString& key) const { return valueAt(values, key); }

bool kuVariantSet::containsValue(const QString& key) const { return values.count(key) > 0; }

void kuVariantSet::addMaterialSnapshot(const QString& nodePath, const QString& material) {
  materialSnapshots[nodePath] = material;
  ++snapshotRevision;
}

void kuVariantSet::removeMaterialSnapshot(const QString& nodePath) {
  materialSnapshots.erase(nodePath);
}

QString kuVariantSet::getMaterialSnapshot(const QString& nodePath) const {
  return valueAt(materialSnapshots, nodePath);
}

bool kuVariantSet::containsMaterialSnapshot(const QString& nodePath) const {
  return materialSnapshots.count(nodePath) > 0;
}

void kuVariantSet::setMaterialSnapshots(std::map<QString, QString> snapshots) {
  materialSnapshots = std::move(snapshots);
  ++snapshotRevision;
}

void kuVariantSet::getInclInfo(bool& nodes, bool& mats, bool& lights, bool& env, bool& view,
                               bool& sceneplates) const {
  nodes = inclNodes;
  mats = inclMats;
  lights = inclLights;
  env = inclEnv;
  view = inclView;
  sceneplates = inclSceneplates;
}

void kuVariantSet::setInclInfo(bool nodes, bool mats, bool lights, bool env, bool view,
                               bool sceneplates) {
  inclNodes = nodes;
  inclMats = mats;
  inclLights = lights;
  inclEnv = env;
  inclView = view;
  inclSceneplates = sceneplates;
}

void kuVariantSet::clear() {
  lightVariants.clear();
  materialVariants.clear();
  nodeVariants.clear();
  transformVariants.clear();
  viewpoints.clear();
  overlayVariants.clear();
  values.clear();
  animations.clear();
  animationCursor = 0;
  sequentialAnimation = false;
  hotkey.clear();
  comment.clear();
  script.clear();
  defaultViewpoint.clear();
  shortcutKey = -1;
  shortcutModifier = QFlags<Qt::KeyboardModifier>();
  targetNodeNames.clear();
  materialSnapshots.clear();
}

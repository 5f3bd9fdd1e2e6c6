#include "support/ManagerDump.h"

#include <sstream>

#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

std::ostream& operator<<(std::ostream& out, const QString& text) {
  return out << text.toStdString();
}

std::ostream& operator<<(std::ostream& out, const osg::Vector<float, 3>& vector) {
  return out << vector[0] << ' ' << vector[1] << ' ' << vector[2];
}

template <class Value>
void field(std::ostream& out, const char* name, const Value& value, const Value& usual) {
  if (value != usual) out << ' ' << name << '=' << value;
}

template <class Value>
void line(std::ostream& out, const char* name, const Value& value, const Value& usual) {
  if (value != usual) out << "  " << name << ' ' << value << '\n';
}

void dump(std::ostream& out, const kuVariantGroup& group) {
  out << "group " << group.getName();
  field(out, "comment", group.getComment(), QString());
  field(out, "visible", group.getVisible(), true);
  field(out, "vr", group.getShowInVRMenu(), true);
  field(out, "sync", group.getSyncInCollaboration(), true);
  out << '\n';
  for (const kuVariantSet* set : group.getVariantSets())
    out << "  set " << set->getName() << '\n';
}

void dump(std::ostream& out, const char* kind, const std::list<kuVariantState>& states) {
  for (const kuVariantState& entry : states)
    out << "  " << kind << ' ' << entry.getVariant() << '=' << entry.getState() << '\n';
}

template <class Names>
void dumpNames(std::ostream& out, const char* kind, const Names& names) {
  for (const QString& name : names)
    out << "  " << kind << ' ' << name << '\n';
}

void dumpMap(std::ostream& out, const char* kind, const std::map<QString, QString>& map) {
  for (const auto& [key, value] : map)
    out << "  " << kind << ' ' << key << '=' << value << '\n';
}

void dumpClipping(std::ostream& out, const kuVariantSet& set) {
  static const kuVariantSet usual;
#define KU_CLIPPING(getter) line(out, #getter, set.getter(), usual.getter())
  KU_CLIPPING(getClippingState);
  KU_CLIPPING(getClippingPlanePosition);
  KU_CLIPPING(getClippingPlaneNormal);
  KU_CLIPPING(getClippingInvert);
  KU_CLIPPING(getClippingHideScene);
  KU_CLIPPING(getClippingShowPlane);
  KU_CLIPPING(getClippingPlaneColor);
  KU_CLIPPING(getClippingShowGrid);
  KU_CLIPPING(getClippingGridColor);
  KU_CLIPPING(getClippingShowContour);
  KU_CLIPPING(getClippingContourColor);
  KU_CLIPPING(getClippingContourWidth);
#undef KU_CLIPPING
}

std::string inclInfo(const kuVariantSet& set) {
  bool flags[6];
  set.getInclInfo(flags[0], flags[1], flags[2], flags[3], flags[4], flags[5]);
  std::string text;
  for (const bool flag : flags)
    text += flag ? '1' : '0';
  return text;
}

void dump(std::ostream& out, const kuVariantSet& set) {
  out << "set " << set.getName();
  field(out, "hotkey", set.getHotkey(), QString());
  field(out, "key", set.getShortcutKey(), -1);
  field(out, "modifier", int(set.getShortcutModifier()), 0);
  field(out, "comment", set.getComment(), QString());
  field(out, "vr", set.getShowInVRMenu(), true);
  field(out, "sync", set.getSyncInCollaboration(), true);
  field(out, "script", set.getScript(), QString());
  field(out, "viewpoint", set.getDefaultViewpoint(), QString());
  field(out, "sequential", set.getSequentialAnimation(), false);
  field(out, "incl", inclInfo(set), std::string("000000"));
  field(out, "preview", set.getPreview().toStdString(), std::string());
  field(out, "group", set.getGroup() ? set.getGroup()->getName() : QString(), QString());
  out << '\n';
  dump(out, "node", set.getNodeVariants());
  dump(out, "material", set.getMaterialVariants());
  dump(out, "light", set.getLightVariants());
  dump(out, "overlay", set.getOverlayVariants());
  dump(out, "transform", set.getTransformVariants());
  dumpNames(out, "viewpoint", set.getViewpoints());
  dumpNames(out, "animation", set.getAnimations());
  dumpNames(out, "geometry", set.getGeometries());
  dumpNames(out, "target", set.getTargetNodeNames());
  dumpMap(out, "value", set.getValues());
  dumpMap(out, "snapshot", set.getMaterialSnapshots());
  dumpClipping(out, set);
}

void dump(std::ostream& out, const char* kind, const kuVariant& variant, const QString& base) {
  out << kind << ' ' << variant.getName() << " base=" << base;
  field(out, "default", variant.getDefault(), QString());
  out << '\n';
  for (const kuVariantOption& option : variant.getOptions()) {
    out << "  option " << option.getName();
    field(out, "hotkey", option.getHotkey(), QString());
    field(out, "key", option.getShortcutKey(), 0);
    field(out, "modifier", int(option.getShortcutModifier()), 0);
    field(out, "action", option.getAction(), false);
    out << '\n';
  }
}

}  // namespace

std::string setDump(const kuVariantSet& set) {
  std::ostringstream out;
  dump(out, set);
  return out.str();
}

std::string managerDump() {
  std::ostringstream out;
  for (const auto* group : kuVariants::getVariantGroups())
    dump(out, *group);
  for (const auto* set : kuVariants::getVariantSets())
    dump(out, *set);
  for (const auto* variant : kuVariants::getNodeVariants())
    dump(out, "nodeVariant", *variant, variant->getNode());
  for (const auto* variant : kuVariants::getMaterialVariants())
    dump(out, "materialVariant", *variant, variant->getMaterial());
  for (const auto* variant : kuVariants::getLightVariants())
    dump(out, "lightVariant", *variant, variant->getNode());
  for (const auto* variant : kuVariants::getOverlayVariants())
    dump(out, "overlayVariant", *variant, variant->getOverlay());
  for (const auto* variant : kuVariants::getTransformVariants())
    dump(out, "transformVariant", *variant, variant->getNode());
  return out.str();
}

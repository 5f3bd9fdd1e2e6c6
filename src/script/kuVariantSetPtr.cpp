#include "script/kuVariantSetPtr.h"

#include <array>

#include "manager/kuVariants.h"
#include "model/kuUtf8.h"
#include "model/kuVariantSet.h"
#include "scene/kuTransformVariant.h"

namespace {

/** Python copies the bytes when the call has returned; C++ may hold those of several calls. */
char const* keep(const QString& text) {
  static std::array<QByteArray, kuVariantSetPtr::lastingTexts> kept;
  static std::size_t next = 0;
  QByteArray& bytes = kept[next++ % kept.size()];
  bytes = text.toUtf8();
  return bytes.constData();
}

/** By exact value: all three modifiers together are none. */
QString hotkeyPrefix(int modifier) {
  switch (modifier) {
    case Qt::ShiftModifier:
      return QStringLiteral("Shift ");
    case Qt::ControlModifier:
      return QStringLiteral("Ctrl ");
    case Qt::ShiftModifier | Qt::ControlModifier:
      return QStringLiteral("Shift-Ctrl ");
    case Qt::AltModifier:
      return QStringLiteral("Alt ");
    case Qt::ShiftModifier | Qt::AltModifier:
      return QStringLiteral("Shift-Alt ");
    case Qt::AltModifier | Qt::ControlModifier:
      return QStringLiteral("Alt-Ctrl ");
    default:
      return QStringLiteral(" ");
  }
}

bool isHotkeyCharacter(int key) { return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z'); }

/** Unnamed objects have no variant, and a receiver may take it away at once. */
template <class Variant>
void addState(kuVariantSet& set, Variant* variant, char const* state) {
  if (variant) set.add(variant, QString::fromUtf8(state));
}

}  // namespace

void kuVariantSetPtr::setName(char const* name) {
  if (variantSet) variantSet->setName(QString::fromUtf8(name));
}

char const* kuVariantSetPtr::getName() { return variantSet ? keep(variantSet->getName()) : ""; }

void kuVariantSetPtr::setHotkeyString(char const* key) {
  if (variantSet) variantSet->setHotkey(QString::fromUtf8(key));
}

void kuVariantSetPtr::setHotkey(int key) {
  if (variantSet) setHotkey(key, 0);
}

void kuVariantSetPtr::setHotkey(int key, int modifier) {
  if (!variantSet || !isHotkeyCharacter(key)) return;
  variantSet->setHotkey(hotkeyPrefix(modifier) + QChar(key));
}

char const* kuVariantSetPtr::getHotkey() { return variantSet ? keep(variantSet->getHotkey()) : ""; }

void kuVariantSetPtr::addGeometry(kuNodePtr node, char const* state) {
  if (!variantSet || !node.isValid()) return;
  addState(*variantSet, kuVariants::createNodeVariant(node.getNode(), true), state);
}

void kuVariantSetPtr::addMaterial(kuMaterialPtr material, char const* state) {
  if (!variantSet || !material.isValid()) return;
  addState(*variantSet, kuVariants::createMaterialVariant(material.getMaterial(), true), state);
}

void kuVariantSetPtr::addLight(kuNodePtr node, char const* state) {
  if (!variantSet || !node.isValid()) return;
  addState(*variantSet, kuVariants::createLightVariant(node.getNode(), true), state);
}

void kuVariantSetPtr::addTransfrom(kuNodePtr node, char const* state) {
  if (!variantSet || !node.isValid()) return;
  kuTransformVariant* variant = kuVariants::createTransformVariant(node.getNode(), true);
  if (!variant) return;
  const QString name(state);
  if (!variant->find(name)) variant->updateVariants();
  if (variant->find(name)) variantSet->add(variant, name);
}

void kuVariantSetPtr::addViewpoint(char const* viewpoint) {
  if (variantSet) variantSet->addViewpoint(QString::fromUtf8(viewpoint));
}

void kuVariantSetPtr::addScript(char const* script) {
  if (variantSet) variantSet->setScript(QString::fromUtf8(script));
}

char const* kuVariantSetPtr::getScript() const {
  return variantSet ? keep(variantSet->getScript()) : "";
}

std::vector<std::string> kuVariantSetPtr::getTargetNodeNames() {
  std::vector<std::string> names;
  if (!variantSet) return names;
  for (const QString& name : variantSet->getTargetNodeNames())
    names.push_back(kuUtf8(name));
  return names;
}

void kuVariantSetPtr::setValue(char const* key, char const* value) {
  if (variantSet) variantSet->addValue(QString::fromUtf8(key), QString::fromUtf8(value));
}

char const* kuVariantSetPtr::getValue(char const* key) const {
  return variantSet ? keep(variantSet->getValue(QString::fromUtf8(key))) : "";
}

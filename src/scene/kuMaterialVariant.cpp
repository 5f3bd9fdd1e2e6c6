#include "scene/kuMaterialVariant.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "host/kernel/kuController.h"
#include "host/osg/EditCP.h"
#include "host/osg/SwitchMaterial.h"
#include "host/utils/kuMaterials.h"
#include "model/kuKeyword.h"
#include "model/kuLivingVariant.h"
#include "scene/kuOptionRebuild.h"
#include "scene/kuSubTree.h"
#include "scene/kuSwitchMaterials.h"
#include "scene/kuVariantMessages.h"

namespace {

using StateNames = std::vector<std::string>;

std::vector<kuMaterialPtr> materialsOf(const QString& name) {
  return kuMaterials::findMaterials(name.toUtf8().constData());
}

osg::MaterialPtr materialOf(const QString& name) {
  return kuMaterials::findMaterial(name.toUtf8().constData());
}

QString nameOf(const osg::MaterialPtr& material) {
  return QString::fromUtf8(kuMaterials::getName(material));
}

StateNames stateNames(const osg::Material& material) {
  StateNames names;
  material.getStateNames(names);
  return names;
}

/** The index of the present state, if the material tells one that is in the list. */
std::optional<std::size_t> presentState(const osg::Material& material, const StateNames& names) {
  int index = 0;
  if (!material.getCurrentState(index)) return std::nullopt;
  if (index < 0 || std::size_t(index) >= names.size()) return std::nullopt;
  return std::size_t(index);
}

/** The index as the material tells it, whatever it is; 0 if there is no present state. */
int presentIndex(const osg::Material& material) {
  int index = 0;
  return material.getCurrentState(index) ? index : 0;
}

/** The switch of that name, if it may be changed; otherwise null. */
osg::SwitchMaterialPtr editableSwitch(const QString& name) {
  const osg::MaterialPtr found = materialOf(name);
  // The host answers for a missing material as well.
  if (!kuMaterials::isEditable(found)) return osg::NullFC;
  return osg::SwitchMaterialPtr::dcast(found);
}

// The steps. They stay inside the list of states wherever the present one is.

int nextState(int present, int count) {
  const std::int64_t next = std::int64_t(present) + 1;
  return int(std::max<std::int64_t>(std::min<std::int64_t>(next, count - 1), 0));
}

int nextStateInLoop(int present, int count) {
  const std::int64_t next = std::int64_t(present) + 1;
  return next >= 0 && next < count ? int(next) : 0;
}

int previousState(int present, int count) { return std::min(std::max(present, 1), count) - 1; }

int previousStateInLoop(int present, int count) {
  return std::min(present >= 1 ? present : count, count) - 1;
}

/** One selection; it does without the variant once a receiver of its messages has deleted that. */
class Selection {
 public:
  Selection(const kuMaterialVariant& variant, const QString& state)
      : _variant(variant),
        _variantName(variant.getName().toStdString()),
        _materialName(variant.getMaterial().toStdString()),
        _state(state.toStdString()),
        _keyword(kuKeywordOf(state)) {}

  void applyTo(const osg::MaterialPtr& material) const;
  /** Each material is told under the names that the variant has by then, or had last. */
  void followNames();

 private:
  const std::string& wantedState(const osg::Material& material, const StateNames& names) const;
  void sendChanged(const std::string& wanted) const;

  const kuLivingVariant _variant;
  std::string _variantName;
  std::string _materialName;
  const std::string _state;
  const kuKeyword _keyword;
};

void Selection::followNames() {
  const auto* living = static_cast<const kuMaterialVariant*>(_variant.get());
  if (!living) return;
  _variantName = living->getName().toStdString();
  _materialName = living->getMaterial().toStdString();
}

void Selection::applyTo(const osg::MaterialPtr& material) const {
  if (!material || !material->isMultiState()) return;
  const StateNames names = stateNames(*material);
  if (names.empty()) return;
  const std::string& wanted = wantedState(*material, names);
  const auto place = std::find(names.begin(), names.end(), wanted);
  if (place == names.end()) return;
  material->setCurrentState(unsigned(place - names.begin()));
  sendChanged(wanted);
}

const std::string& Selection::wantedState(const osg::Material& material,
                                          const StateNames& names) const {
  const int present = presentIndex(material);
  const int count = int(names.size());
  switch (_keyword) {
    case kuKeyword::Next:
      return names[std::size_t(nextState(present, count))];
    case kuKeyword::NextLoop:
      return names[std::size_t(nextStateInLoop(present, count))];
    case kuKeyword::Previous:
      return names[std::size_t(previousState(present, count))];
    case kuKeyword::PreviousLoop:
      return names[std::size_t(previousStateInLoop(present, count))];
    default:
      return _state;
  }
}

void Selection::sendChanged(const std::string& wanted) const {
  kuMessage message;
  message.set("variantName", _variantName, true);
  // The receivers get the bytes themselves: they belong to this selection, which outlasts the call.
  message.set("materialName", wanted.c_str(), true);
  message.set("materialBaseName", _materialName, true);
  kuController::call("variantsMaterialChanged", message, 1);
}

osg::SwitchMaterialPtr createSwitch(const QString& name, const osg::MaterialPtr& only) {
  const osg::SwitchMaterialPtr created = osg::SwitchMaterialBase::create();
  kuMaterials::setName(created, name.toUtf8().constData(), true);
  const osg::EditCP edit(created);
  created->addMaterial(only);
  created->setChoice(0);
  return created;
}

void takeOut(const osg::SwitchMaterialPtr& from, const osg::MaterialPtr& subMaterial) {
  const osg::EditCP edit(from, osg::MultiMaterialBase::MaterialsFieldMask);
  from->subMaterial(subMaterial);
}

void tellMaterialsChanged() { kuController::call("updateMaterials", 1); }

void setUsersActive(const QString& name, bool active) {
  std::vector<kuNodePtr> users;
  for (const kuMaterialPtr& found : materialsOf(name)) {
    kuMaterials::getNodesWithMaterial(users, found);
  }
  for (const kuNodePtr& user : users) {
    kuSubTree::setActive(user, active);
  }
}

}  // namespace

kuMaterialVariant::kuMaterialVariant(const osg::MaterialPtr& source) {
  if (!source) return;
  source->isMultiState() ? takeStates(source) : wrap(source);
}

void kuMaterialVariant::takeStates(const osg::MaterialPtr& source) {
  const StateNames names = stateNames(*source);
  const auto present = presentState(*source, names);
  material = nameOf(source);
  setName(material);
  kuAddStepKeywords(*this);
  for (const std::string& state : names)
    add(QString::fromStdString(state), QString());
  if (!names.empty()) setDefault(QString::fromStdString(names[present.value_or(0)]));
}

void kuMaterialVariant::wrap(const osg::MaterialPtr& source) {
  const QString sourceName = nameOf(source);
  if (sourceName.isEmpty()) return;
  material = sourceName + " Switch";
  setName(material);
  const osg::MaterialPtr created = createSwitch(material, source);
  kuAddStepKeywords(*this);
  add(sourceName, QString());
  setDefault(sourceName);
  kuSwitchMaterials::enterIntoPool(created);
  kuSwitchMaterials::replaceInScene(source, created);
  kuSwitchMaterials::tellAdded();
}

bool kuMaterialVariant::isEditable() const { return editableSwitch(material) != osg::NullFC; }

void kuMaterialVariant::add(const QString& stateName, const QString& hotkey) {
  kuVariant::add(stateName, hotkey);
}

void kuMaterialVariant::add(const osg::MaterialPtr& subMaterial, const QString& hotkey) {
  const osg::SwitchMaterialPtr edited = editableSwitch(material);
  if (!edited) return;
  const QString stateName = nameOf(subMaterial);
  if (stateName.isEmpty()) return;
  if (!edited->hasSubMaterial(subMaterial, false)) {
    const osg::EditCP edit(edited, osg::MultiMaterialBase::MaterialsFieldMask);
    edited->addMaterial(subMaterial);
  }
  kuVariant::add(stateName, hotkey);
  tellMaterialsChanged();
}

void kuMaterialVariant::remove(const osg::MaterialPtr& subMaterial) {
  const osg::SwitchMaterialPtr edited = editableSwitch(material);
  if (!edited) return;
  const QString stateName = nameOf(subMaterial);
  if (stateName.isEmpty()) return;
  takeOut(edited, subMaterial);
  kuVariant::remove(stateName);
  tellMaterialsChanged();
}

void kuMaterialVariant::remove(const QString& stateName) {
  const osg::SwitchMaterialPtr edited = editableSwitch(material);
  if (!edited) return;
  // One pass over the indices of before: what moves up to a removed one's place is passed over.
  const std::size_t count = edited->getMaterials().size();
  for (std::size_t i = 0; i < count; ++i) {
    const osg::MaterialPtr subMaterial = edited->getMaterial(unsigned(i));
    if (subMaterial && nameOf(subMaterial) == stateName) takeOut(edited, subMaterial);
  }
  kuVariant::remove(stateName);
  tellMaterialsChanged();
}

void kuMaterialVariant::updateVariants() {
  kuOptionRebuild rebuilt(*this);
  const osg::MaterialPtr found = materialOf(material);
  if (!found || !found->isMultiState()) return;
  rebuilt.addSteps();
  const StateNames names = stateNames(*found);
  for (const std::string& state : names)
    rebuilt.addState(QString::fromStdString(state));
  const bool restored = rebuilt.restoreDefault();
  // Asked in any case: a material may bring its states up to date with the question.
  const auto present = presentState(*found, names);
  if (!restored && present) setDefault(QString::fromStdString(names[*present]));
}

void kuMaterialVariant::showGeometry() { setUsersActive(material, true); }

void kuMaterialVariant::hideGeometry() { setUsersActive(material, false); }

int kuMaterialVariant::getCurrentState(const osg::MaterialPtr& of) const {
  return presentIndex(*of);
}

void kuMaterialVariant::onSelect(const QString& state) {
  // A receiver may delete this variant in the midst of it: from the first message on nothing of it
  // is read here.
  void* const self = static_cast<kuVariant*>(this);
  Selection selection(*this, state);
  for (const kuMaterialPtr& found : materialsOf(material)) {
    selection.applyTo(found);
    selection.followNames();
  }
  kuSendVariantSelected("materialVariantSelected", self);
}

QString kuMaterialVariant::onCurrent() const {
  const osg::MaterialPtr found = materialOf(material);
  if (!found || !found->isMultiState()) return QString();
  const StateNames names = stateNames(*found);
  const auto present = presentState(*found, names);
  return present ? QString::fromStdString(names[*present]) : QString();
}

#include "scripting/ScriptSets.h"

#include "Kinds.h"
#include "Selection.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scripting/ScriptErrors.h"
#include "scripting/ScriptKinds.h"

namespace bp = boost::python;

namespace {

QString textOf(const std::string& utf8) { return QString::fromStdString(utf8); }

kuVariantGroup& existingGroup(const std::string& name) {
  if (kuVariantGroup* group = kuVariants::findVariantGroup(textOf(name))) return *group;
  QStringList existing;
  for (const kuVariantGroup* group : kuVariants::getVariantGroups())
    existing += group->getName();
  failUnknown("unknown group", name, textOf(name), existing);
}

/** Null for None. */
kuVariantGroup* groupOrNone(const bp::object& name) {
  return name.is_none() ? nullptr : &existingGroup(bp::extract<std::string>(name));
}

/** @param exists whether something of that name is there; the thing itself may keep its name. */
void checkNewName(const char* what, const std::string& name, bool exists) {
  if (name.empty()) raiseWrong(std::string("the name of a ") + what + " is empty");
  if (exists) raiseWrong(std::string("there is a ") + what + " \"" + escaped(name) + "\" already");
}

bp::list namesOf(const std::vector<kuVariantSet*>& sets) {
  bp::list names;
  for (const kuVariantSet* set : sets)
    names.append(set->getName().toStdString());
  return names;
}

}  // namespace

namespace ScriptSets {

bp::list sets() { return namesOf(kuVariants::getVariantSets()); }

kuVariantSetPtr createSet(const std::string& name, const bp::object& group) {
  checkNewName("set", name, kuVariants::findVariantSet(textOf(name)) != nullptr);
  kuVariantGroup* into = groupOrNone(group);
  return kuVariants::createVariantSet(textOf(name), true, into);
}

bp::object findSet(const std::string& name) {
  kuVariantSet* set = kuVariants::findVariantSet(textOf(name));
  return set ? bp::object(kuVariantSetPtr(set)) : bp::object();
}

void renameSet(const std::string& name, const std::string& newName) {
  kuVariantSet& set = existingSet(textOf(name));
  if (newName == name) return;
  checkNewName("set", newName, kuVariants::findVariantSet(textOf(newName)) != nullptr);
  set.setName(textOf(newName));
}

void removeSet(const std::string& name) {
  existingSet(textOf(name));
  kuVariants::removeVariantSet(textOf(name));
}

void selectSet(const std::string& name, bool skipViewpoint) {
  warnWhereNotRestored({textOf(name)});
  activateSet(textOf(name), skipViewpoint, true);
}

bp::object groupOf(const std::string& set) {
  const kuVariantGroup* group = existingSet(textOf(set)).getGroup();
  return group ? bp::object(group->getName().toStdString()) : bp::object();
}

void setGroup(const std::string& name, const bp::object& groupName) {
  kuVariantSet& set = existingSet(textOf(name));
  kuVariantGroup* group = groupOrNone(groupName);
  if (set.getGroup() == group) return;
  if (set.getGroup()) set.getGroup()->remove(&set);
  if (group) group->add(&set);
}

bp::dict groups() {
  bp::dict result;
  for (const kuVariantGroup* group : kuVariants::getVariantGroups())
    result[group->getName().toStdString()] = namesOf(group->getVariantSets());
  return result;
}

void createGroup(const std::string& name, bool visible) {
  checkNewName("group", name, kuVariants::findVariantGroup(textOf(name)) != nullptr);
  kuVariants::createVariantGroup(textOf(name), true, visible);
}

void renameGroup(const std::string& name, const std::string& newName) {
  kuVariantGroup& group = existingGroup(name);
  if (newName == name) return;
  checkNewName("group", newName, kuVariants::findVariantGroup(textOf(newName)) != nullptr);
  group.setName(textOf(newName));
}

void removeGroup(const std::string& name) {
  existingGroup(name);
  kuVariants::removeVariantGroup(textOf(name));
}

bp::dict states(const std::string& set) {
  const kuVariantSet& found = existingSet(textOf(set));
  bp::dict result;
  for (const Kind& kind : kinds()) {
    bp::dict ofKind;
    for (const kuVariantState& state : kind.statesOf(found))
      ofKind[state.getVariant().toStdString()] = state.getState().toStdString();
    if (bp::len(ofKind) > 0) result[kind.name] = ofKind;
  }
  return result;
}

void setState(const std::string& set, const std::string& kind, const std::string& variant,
              const std::string& state) {
  existingKind(kind).addState(existingSet(textOf(set)), textOf(variant), textOf(state));
}

void removeState(const std::string& set, const std::string& kind, const std::string& variant) {
  existingKind(kind).removeState(existingSet(textOf(set)), textOf(variant));
}

}  // namespace ScriptSets

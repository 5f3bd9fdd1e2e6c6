#include <algorithm>
#include <memory>

#include "host/kernel/kuController.h"
#include "host/kernel/kuLog.h"
#include "manager/kuUniqueName.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"

namespace {

/** The attribute of a group is named "variant" too. */
kuMessage messageOf(kuVariantGroup* group) {
  kuMessage message;
  message.set("variant", static_cast<void*>(group), true);
  return message;
}

}  // namespace

kuVariantGroup* kuVariants::createVariantGroup(const QString& name, bool sendMessage,
                                               bool visible) {
  if (name.isEmpty()) return nullptr;
  if (findVariantGroup(name)) {
    kuLog::warning("A variant group with that name already exists.");
    return nullptr;
  }
  auto* group = new kuVariantGroup(name);
  group->setVisible(visible);
  _variantGroups.append(group);
  if (!sendMessage) return group;
  kuMessage message = messageOf(group);
  kuController::call("variantGroupAdded", message, 1);
  return _variantGroups.contains(group) ? group : nullptr;
}

kuVariantGroup* kuVariants::findVariantGroup(const QString& name) {
  return _variantGroups.find(name);
}

kuVariantGroup* kuVariants::getVariantGroup(unsigned id) {
  const std::vector<kuVariantGroup*>& groups = getVariantGroups();
  const auto found = std::find_if(groups.begin(), groups.end(), [&](const kuVariantGroup* group) {
    return group && group->id() == id;
  });
  return found == groups.end() ? nullptr : *found;
}

int kuVariants::countVariantGroup(const QString& name) { return _variantGroups.count(name); }

// As with sets, a nameless group goes by its empty name.
bool kuVariants::removeVariantGroup(const QString& name) {
  kuVariantGroup* found = _variantGroups.first(name);
  if (!found) return true;
  _variantGroups.remove(found);
  const std::unique_ptr<kuVariantGroup> removed(found);  // alive while the message is delivered
  kuMessage message = messageOf(found);
  found->clear();
  kuController::call("variantGroupRemoved", message, 1);
  return true;
}

void kuVariants::clearVariantGroups() {
  _variantGroups.clear();
  kuController::call("variantGroupChanged", 1);
}

QString kuVariants::getUniqueVariantGroupName(QString base) {
  return kuUniqueName(base, getVariantGroups());
}

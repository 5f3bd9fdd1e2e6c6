#include "standalone/scene/MaterialUse.h"

#include <algorithm>

#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/NodeCoreFields.h"

namespace kuStandalone {
namespace {

void leave(osg::MaterialFields& material, osg::NodeCore& user) {
  const std::size_t place = user.hostFields().placeAmongUsers;
  osg::NodeCore* last = material.users.back();
  material.users[place] = last;
  last->hostFields().placeAmongUsers = place;
  material.users.pop_back();
}

void forget(const osg::MaterialPtr& material, const osg::MultiMaterial& holder) {
  if (!material) return;
  auto& holders = material->hostFields().holders;
  holders.erase(std::find(holders.begin(), holders.end(), &holder));
}

}  // namespace

void assignMaterial(osg::NodeCore& user, osg::MaterialPtr& field, osg::MaterialPtr material) {
  if (field) leave(field->hostFields(), user);
  field = std::move(material);
  if (!field) return;
  auto& users = field->hostFields().users;
  user.hostFields().placeAmongUsers = users.size();
  users.push_back(&user);
}

void assignSubMaterials(osg::MultiMaterial& holder, osg::MFMaterialPtr materials) {
  osg::MFMaterialPtr& field = holder.hostFields().subMaterials;
  for (const osg::MaterialPtr& former : field)
    forget(former, holder);
  field.swap(materials);
  for (const osg::MaterialPtr& present : field) {
    if (present) present->hostFields().holders.push_back(&holder);
  }
}

void addSubMaterial(osg::MultiMaterial& holder, const osg::MaterialPtr& material) {
  material->hostFields().holders.push_back(&holder);
  holder.hostFields().subMaterials.push_back(material);
}

void removeSubMaterial(osg::MultiMaterial& holder, const osg::MaterialPtr& material) {
  osg::MFMaterialPtr& field = holder.hostFields().subMaterials;
  const auto found = std::find(field.begin(), field.end(), material);
  if (found == field.end()) return;
  const osg::MaterialPtr kept = std::move(*found);
  field.erase(found);
  forget(kept, holder);
}

}  // namespace kuStandalone

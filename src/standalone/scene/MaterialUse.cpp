#include "standalone/scene/MaterialUse.h"

#include <algorithm>

#include "standalone/scene/MaterialFields.h"

namespace kuStandalone {

void assignMaterial(osg::NodeCore& user, osg::MaterialPtr& field, osg::MaterialPtr material) {
  if (field) {
    auto& users = field->hostFields().users;
    const auto found = std::find(users.begin(), users.end(), &user);
    *found = users.back();
    users.pop_back();
  }
  field = std::move(material);
  if (field) field->hostFields().users.push_back(&user);
}

}  // namespace kuStandalone

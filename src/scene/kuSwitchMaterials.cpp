#include "scene/kuSwitchMaterials.h"

#include <vector>

#include "host/kernel/kuModuleBase.h"
#include "host/kernel/kuScenegraph.h"
#include "host/osg/EditCP.h"
#include "host/osg/Geometry.h"
#include "host/osg/MaterialGroup.h"
#include "host/utils/kuMaterials.h"

namespace {

template <class CorePtr>
bool setMaterial(const CorePtr& core, const osg::MaterialPtr& material) {
  if (!core) return false;
  const osg::EditCP edit(core);
  core->setMaterial(material);
  return true;
}

void replaceAt(const osg::NodeCorePtr& core, const osg::MaterialPtr& material) {
  if (setMaterial(osg::MaterialGroupPtr::dcast(core), material)) return;
  setMaterial(osg::GeometryPtr::dcast(core), material);
}

}  // namespace

void kuSwitchMaterials::enterIntoPool(const osg::MaterialPtr& material) {
  const osg::MaterialPoolPtr pool = kuScenegraph::getMaterialPool();
  const osg::EditCP edit(pool);
  pool->add(material);
}

void kuSwitchMaterials::replaceInScene(const osg::MaterialPtr& former,
                                       const osg::MaterialPtr& material) {
  std::vector<kuNodePtr> users;
  kuMaterials::getNodesWithMaterial(users, former);
  for (const kuNodePtr& user : users)
    replaceAt(user.getNode()->getCore(), material);
}

void kuSwitchMaterials::tellAdded() {
  constexpr std::int64_t switchMaterialAdded = 0x10000;
  kuMessage added(switchMaterialAdded);
  kuModuleBase::sendMessage(added, false);
}

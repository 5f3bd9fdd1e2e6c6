#include "host/utils/kuMaterials.h"

#include <algorithm>

#include "host/osg/EditCP.h"
#include "host/osg/Geometry.h"
#include "host/osg/MaterialGroup.h"
#include "standalone/scene/MaterialFields.h"
#include "standalone/scene/NameIndex.h"
#include "standalone/scene/NodeCoreFields.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"
#include "standalone/scene/ScenePool.h"

using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::ScenePool;

namespace {

const osg::MFMaterialPtr& pooled(const char* name) {
  return ScenePool::of(Scene::the().pool).find(name ? name : "");
}

void takeFromCores(const osg::MaterialPtr& material) {
  while (!material->hostFields().users.empty()) {
    const osg::NodeCorePtr core(material->hostFields().users.back());
    const osg::EditCP edit(core);
    if (const auto group = osg::MaterialGroupPtr::dcast(core)) {
      group->setMaterial(osg::NullFC);
    } else {
      osg::GeometryPtr::dcast(core)->setMaterial(osg::NullFC);
    }
  }
}

void takeFromSwitches(const osg::MaterialPtr& material) {
  while (!material->hostFields().holders.empty()) {
    const osg::MultiMaterialPtr holder(material->hostFields().holders.back());
    const osg::EditCP edit(holder, osg::MultiMaterial::MaterialsFieldMask);
    holder->subMaterial(material);
  }
}

void takeFromFileVariants(const osg::MaterialPtr& material) {
  for (kuStandalone::FileVariant& variant : Scene::the().fileVariants) {
    auto& choices = variant.choices;
    choices.erase(std::remove_if(choices.begin(), choices.end(),
                                 [&](const auto& choice) { return choice.first == material; }),
                  choices.end());
  }
}

void takeFromPool(const osg::MaterialPtr& material) {
  const osg::EditCP edit(Scene::the().pool);
  ScenePool::of(Scene::the().pool).remove(material);
}

}  // namespace

const char* kuMaterials::getName(const osg::MaterialPtr& material) {
  return material ? material->hostFields().name.c_str() : "";
}

// Views of this host compare the revision of the scene, so there is nobody else to notify.
void kuMaterials::setName(const osg::MaterialPtr& material, const char* name, bool) {
  if (!material || !name) return;
  const osg::EditCP edit(material);
  osg::MaterialFields& fields = material->hostFields();
  if (fields.pool) {
    fields.pool->rename(material, name);
  } else {
    fields.name = name;
  }
}

kuMaterialPtr kuMaterials::findMaterial(const char* name) {
  const osg::MFMaterialPtr& found = pooled(name);
  return found.empty() ? kuMaterialPtr() : kuMaterialPtr(found.front());
}

std::vector<kuMaterialPtr> kuMaterials::findMaterials(const char* name) {
  const osg::MFMaterialPtr& found = pooled(name);
  return std::vector<kuMaterialPtr>(found.begin(), found.end());
}

bool kuMaterials::isEditable(const osg::MaterialPtr& material) {
  return material && !material->hostFields().locked;
}

const osg::MFMaterialPtr* kuMaterials::getSubMaterials(const osg::MaterialPtr& material) {
  const auto multi = osg::MultiMaterialPtr::dcast(material);
  return multi ? &multi->getMaterials() : nullptr;
}

void kuMaterials::removeMaterial(const osg::MaterialPtr& material) {
  if (!material) return;
  const osg::MaterialPtr kept = material;
  takeFromCores(kept);
  takeFromSwitches(kept);
  takeFromFileVariants(kept);
  takeFromPool(kept);
}

void kuMaterials::getNodesWithMaterial(std::vector<kuNodePtr>& nodes,
                                       const osg::MaterialPtr& material) {
  if (!material) return;
  std::vector<SceneNode*> found;
  for (osg::NodeCore* core : material->hostFields().users) {
    for (SceneNode* node : core->hostFields().parents) {
      if (node->tree() == &Scene::the().nodes) found.push_back(node);
    }
  }
  kuStandalone::sortInSceneOrder(found.data(), found.data() + found.size());
  for (SceneNode* node : found)
    nodes.emplace_back(osg::NodePtr(node));
}

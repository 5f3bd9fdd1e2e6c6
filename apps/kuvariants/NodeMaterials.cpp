#include "NodeMaterials.h"

#include "manager/kuVariants.h"

namespace {

QString nameOf(const osg::MaterialPtr& material) {
  return material ? QString::fromUtf8(kuMaterials::getName(material)) : QString();
}

}  // namespace

NodeMaterials::NodeMaterials() {
  std::vector<kuNodePtr> nodes;
  kuNodeUtils::getSceneNodes(nodes, false);
  for (const kuNodePtr& node : nodes) {
    const osg::MaterialPtr material = kuNodeUtils::getMaterial(node);
    if (material) _former.emplace_back(node, material);
  }
}

std::vector<NodeMaterialChange> NodeMaterials::changes() const {
  std::vector<NodeMaterialChange> changes;
  for (const auto& [node, former] : _former) {
    const osg::MaterialPtr present = kuNodeUtils::getMaterial(node);
    if (present == former) continue;
    changes.push_back({kuVariants::getNodePath(node), nameOf(former), nameOf(present)});
  }
  return changes;
}

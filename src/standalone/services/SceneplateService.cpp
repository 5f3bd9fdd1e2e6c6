#include "standalone/services/SceneplateService.h"

#include "host/utils/kuSceneplateUtils.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

QList<kudNode> SceneplateService::findNodes(const QString& name) {
  std::vector<osg::NodePtr> nodes;
  kuSceneplateUtils::findNodes(name.toStdString(), nodes);
  QList<kudNode> result;
  for (const osg::NodePtr& node : nodes)
    result.append(kudNode(SceneNode::of(node).id()));
  return result;
}

}  // namespace kuStandalone

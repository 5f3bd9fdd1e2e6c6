#include "standalone/scene/LightIndex.h"

#include "host/osg/UberLight.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {
namespace {

bool isLight(const osg::NodeCorePtr& core) {
  return core && core->getType().isDerivedFrom(osg::UberLight::_type);
}

void append(const osg::NodePtr& node, LightIndex::Nodes& lights) {
  SceneNode& own = SceneNode::of(node);
  if (isLight(own.core())) lights.push_back(&own);
  for (const osg::NodePtr& child : own.children())
    append(child, lights);
}

}  // namespace

void LightIndex::note(const osg::NodeCorePtr& core) {
  if (_nodes && isLight(core)) clear();
}

const LightIndex::Nodes& LightIndex::find(const osg::NodePtr& root) {
  if (!_nodes) {
    _nodes.emplace();
    if (root) append(root, *_nodes);
  }
  return *_nodes;
}

}  // namespace kuStandalone

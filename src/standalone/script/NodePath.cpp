#include "standalone/script/NodePath.h"

#include <vector>

#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

namespace kuStandalone {

namespace {

/** A node and what of the path is to be found from its name on. */
struct Candidate {
  osg::NodePtr node;
  std::string_view path;
};

/** Pushes the children so that the first one is taken first. */
void pushChildren(const SceneNode& node, std::string_view path, std::vector<Candidate>& stack) {
  const std::vector<osg::NodePtr>& children = node.children();
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    const std::string& name = SceneNode::of(*child).name();
    if (path.substr(0, name.size()) == name) stack.push_back({*child, path});
  }
}

}  // namespace

osg::NodePtr findNodeByPath(std::string_view path) {
  std::vector<Candidate> stack;
  pushChildren(SceneNode::of(Scene::the().nodes.root), path, stack);
  while (!stack.empty()) {
    const Candidate candidate = stack.back();
    stack.pop_back();
    const SceneNode& node = SceneNode::of(candidate.node);
    const std::string_view rest = candidate.path.substr(node.name().size());
    if (rest.empty()) return candidate.node;
    if (rest.front() == '/') pushChildren(node, rest.substr(1), stack);
  }
  return osg::NullFC;
}

}  // namespace kuStandalone

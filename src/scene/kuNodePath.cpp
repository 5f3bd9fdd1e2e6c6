#include "scene/kuNodePath.h"

#include <boost/container/small_vector.hpp>
#include <string_view>

#include "host/utils/kuNodeUtils.h"

std::string kuNodePath(osg::NodePtr node, const osg::NodePtr& root) {
  boost::container::small_vector<std::string_view, 16> names;
  std::size_t length = 0;
  for (; node && node != root; node = node->getParent()) {
    const std::string_view name = kuNodeUtils::getName(node);
    if (name == "Root") break;
    names.push_back(name);
    length += name.size() + 1;
  }
  std::string path;
  path.reserve(length);
  for (auto name = names.rbegin(); name != names.rend(); ++name)
    path.append(*name).push_back('|');
  return path;
}

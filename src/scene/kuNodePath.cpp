#include "scene/kuNodePath.h"

#include <boost/container/small_vector.hpp>
#include <cstring>

#include "host/utils/kuNodeUtils.h"

std::string kuNodePath(osg::NodePtr node, const osg::NodePtr& root) {
  boost::container::small_vector<const char*, 16> names;
  std::size_t length = 0;
  for (; node && node != root; node = node->getParent()) {
    const char* name = kuNodeUtils::getName(node);
    if (std::strcmp(name, "Root") == 0) break;
    names.push_back(name);
    length += std::strlen(name) + 1;
  }
  std::string path;
  path.reserve(length);
  for (auto name = names.rbegin(); name != names.rend(); ++name)
    path.append(*name).push_back('|');
  return path;
}

#pragma once

#include <QString>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "host/osg/Node.h"
#include "host/utils/kuMaterialPtr.h"
#include "host/utils/kuNodePtr.h"

/** What the names that a set holds lead to in the present scene. */
namespace kuSceneReferences {

// All scene objects of a name.
std::vector<kuNodePtr> nodes(const QString& name);
std::vector<kuMaterialPtr> materials(const QString& name);
std::vector<osg::NodePtr> sceneplates(const QString& name);

bool hasNode(const QString& name);
bool hasViewpoint(const QString& name);

/** The names of the scene's lights, taken once. */
class Lights {
 public:
  Lights();
  bool contains(const QString& name) const;

 private:
  std::unordered_set<std::string> _names;
};

/** The names of the scene's animation blocks and clips, taken once. */
class Animations {
 public:
  Animations();
  bool contains(const QString& name) const;

 private:
  std::set<std::string> _names;
};

}  // namespace kuSceneReferences

#pragma once

#include <QString>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/osg/Node.h"
#include "model/kuVariantsExport.h"

/**
 * Finds nodes of one name, and transform states of one name on a node: variants address the scene
 * by name, so these cannot be told apart. Cores are what counts: clones are one thing. It says how
 * scene and sceneplates stood when it was made; after a fix a new one is needed.
 */
class KUVARIANTS_EXPORT kuVariantCaptureChecker {
 public:
  /** Looks through the present scene and its sceneplates, which share one name space. */
  kuVariantCaptureChecker();
  kuVariantCaptureChecker(const kuVariantCaptureChecker&) = default;
  kuVariantCaptureChecker& operator=(const kuVariantCaptureChecker&) = default;
  virtual ~kuVariantCaptureChecker();

  /** Whether nodes have one name; transform states alone do not count. */
  bool hasAmbiguousNodes() const;
  /** Whether a variant set names a node that a fix would rename. */
  bool containsAmbiguousVariantSets() const;

  /** Renames all bearers of a name but the first, and the transform states. */
  void fixAmbiguousNodes();
  /** Gives transform states that share a name on a node names of their own, all but the first. */
  void fixTransformVariants();

 private:
  friend struct kuVariantsTestAccess;

  void findAmbiguousNodes(const osg::NodePtr& node);
  void fixNames();
  bool areTransformVariantsNamesAmbiguous(const osg::NodePtr& node) const;

  /** Every name with the cores of all its bearers. */
  std::map<QString, std::vector<osg::NodeCorePtr>> coresByName;
  /** A name without its number, with the cores of the second and later bearers of a full name. */
  std::map<std::string, std::vector<osg::NodeCorePtr>> coresByStrippedName;
  std::set<osg::NodeCorePtr> coresWithAmbiguousTransformVariants;
  std::set<osg::NodeCorePtr> visitedCores;
};

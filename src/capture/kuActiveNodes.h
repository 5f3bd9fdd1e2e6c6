#pragma once

#include <QByteArray>
#include <QHash>

#include "host/osg/Node.h"

/**
 * Tells whether all bearers of a node's name have the same visibility flag. The scene is looked
 * through once, at the first question; so it is good for a walk in which no flag changes.
 */
class kuActiveNodes {
 public:
  kuActiveNodes();
  ~kuActiveNodes();
  kuActiveNodes(const kuActiveNodes&) = delete;
  kuActiveNodes& operator=(const kuActiveNodes&) = delete;

  /** Whether a scene node of the same name has another flag. */
  static bool differ(const osg::NodePtr& node);

 private:
  struct Flags {
    bool active = false;
    bool inactive = false;
  };

  bool differsFromNamesakes(const osg::NodePtr& node);
  void lookThrough();

  /** The one at work: the innermost walk's. */
  static kuActiveNodes* _present;

  kuActiveNodes* _outer;
  bool _looked = false;
  QHash<QByteArray, Flags> _flags;
};

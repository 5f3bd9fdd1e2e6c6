#include "host/kernel/kuScenegraph.h"
#include "model/kuVariantSet.h"
#include "scene/kuSubTree.h"

// Showing opens a whole subtree, hiding closes the geometries alone; that is meant.

void kuVariantSet::showGeometry() {
  for (const QString& geometry : geometries) {
    for (const kuNodePtr& node : kuScenegraph::findNodes(geometry.toUtf8().constData())) {
      pushEnable(node);
    }
  }
}

void kuVariantSet::hideGeometry() {
  for (const QString& geometry : geometries) {
    for (const kuNodePtr& node : kuScenegraph::findNodes(geometry.toUtf8().constData())) {
      pushDisable(node);
    }
  }
}

void kuVariantSet::pushEnable(osg::NodePtr node) { kuSubTree::enable(node); }

void kuVariantSet::pushDisable(osg::NodePtr node) { kuSubTree::disableGeometries(node); }

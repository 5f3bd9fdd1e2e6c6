// A program outside the project: builds a scene, makes a set, selects it.
#include <QGuiApplication>
#include <iostream>

#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"
#include "standalone/StandaloneHost.h"
#include "standalone/scene/Cores.h"
#include "standalone/scene/Scene.h"
#include "standalone/scene/SceneNode.h"

using kuStandalone::GroupCore;
using kuStandalone::Scene;
using kuStandalone::SceneNode;
using kuStandalone::SwitchCore;

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;

  const osg::NodePtr doors = SceneNode::create("Doors", SwitchCore::create(1));
  SceneNode::of(Scene::the().nodes.root).addChild(doors);
  SceneNode::of(doors).addChild(SceneNode::create("Open", GroupCore::create()));
  SceneNode::of(doors).addChild(SceneNode::create("Closed", GroupCore::create()));

  kuNodeVariant* variant = kuVariants::createNodeVariant(doors, false);
  kuVariants::createVariantSet("Summer", false, nullptr)->addNodeVariant("Doors", "Open");
  const QString before = variant->getCurrent();
  kuVariants::selectVariantSet("Summer", false);
  std::cout << "Doors: " << before.toStdString() << " -> " << variant->getCurrent().toStdString()
            << "\n";
  kuController::call("clearAllVariants",
                     1);  // the library itself frees nothing when it is unloaded
  return 0;
}

#include <QCoreApplication>

#include "host/kernel/kuLog.h"
#include "host/osg/Switch.h"
#include "host/utils/kuNodeUtils.h"
#include "host/utils/kuSceneplateUtils.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSetKeeper.h"

// Sceneplates in a capture. A set records only where they deviate from being shown.

namespace {

QString nameOf(const osg::NodePtr& node) { return QString::fromUtf8(kuNodeUtils::getName(node)); }

/** Unlike the walk over the scene this tells a switch that shows all from one that shows none. */
QString switchState(const osg::NodePtr& node, int choice) {
  if (!node->getActive()) return QStringLiteral("!None");
  if (choice == -2) return QStringLiteral("!All");
  if (choice < 0 || choice >= static_cast<int>(node->getNChildren()))
    return QStringLiteral("!None");
  const osg::NodePtr child = node->getChild(static_cast<unsigned>(choice));
  return child ? nameOf(child) : QStringLiteral("!None");
}

}  // namespace

void kuVariants::captureSceneplateVariants(kuVariantSet* set, bool sendMessage) {
  const osg::NodePtr root = kuSceneplateUtils::getSceneplateRoot();
  if (!root) return;
  const kuVariantSet::Keeper kept(*set);
  std::map<QString, QString> states;
  for (unsigned child = 0; child < root->getNChildren(); ++child)
    collectSceneplateStates(root->getChild(child), states);
  for (const auto& [name, state] : states) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (state == QLatin1String("!Enable")) continue;
    if (kuOverlayVariant* variant = createOverlayVariant(name, sendMessage)) {
      kept->add(variant, state);
    }
  }
}

void kuVariants::collectSceneplateStates(kuNodePtr handle, std::map<QString, QString>& states) {
  if (!handle.isValid()) return;
  const osg::NodePtr node = handle;
  const QString state = getSceneplateState(handle);
  const auto entry = states.emplace(nameOf(node), state);
  if (!entry.second && entry.first->second != state) {
    kuLog::warning(
        "Found multiple sceneplates with same name but different states, states can not be "
        "correctly set to all sceneplates with name: '%s'",
        kuNodeUtils::getName(node));
  }
  for (unsigned child = 0; child < node->getNChildren(); ++child)
    collectSceneplateStates(node->getChild(child), states);
}

QString kuVariants::getSceneplateState(kuNodePtr handle) {
  if (!handle.isValid()) return QString();
  const osg::NodePtr node = handle;
  if (const auto core = osg::SwitchPtr::dcast(node->getCore())) {
    return switchState(node, core->getChoice());
  }
  return node->getActive() ? QStringLiteral("!Enable") : QStringLiteral("!Disable");
}

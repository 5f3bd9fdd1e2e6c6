#pragma once

#include "host/osg/Node.h"
#include "model/kuVariant.h"

class kuMessage;

/**
 * A variant over the sceneplate node of one name: a switch among sceneplates, whose states are its
 * children, "!All", "!None" and the four steps; or a single one with "!Enable", "!Disable" and
 * "!Toggle".
 *
 * A selection goes through the host's sceneplate service and reaches the first node of the name
 * alone; the present state and the options are read from the scene graph itself.
 */
class KUVARIANTS_EXPORT kuOverlayVariant : public kuVariant {
 public:
  kuOverlayVariant() = default;
  /** Takes name, options and default from a node; an unnamed one leaves the names empty. */
  explicit kuOverlayVariant(const osg::NodePtr& source);

  /** Name of the sceneplate node that this variant drives. */
  QString getOverlay() const { return overlay; }
  /** Binds the variant to another sceneplate; the options stay as they are. */
  void setOverlay(const QString& newOverlay) { overlay = newOverlay; }

  /**
   * Rebuilds the options from the scene and keeps the hotkeys of those that remain. Without a node
   * the options are empty and the default stays.
   */
  void updateVariants();

 protected:
  void onSelect(const QString& state) override;
  QString onCurrent() const override;

  /** What a selection does to the scene; nothing without the service or the node. */
  void doSwitchVariant(const QString& state);

 private:
  friend class kuVariantReader;
  friend struct kuVariantsTestAccess;

  static void callVariantsNodesChanged(const osg::NodePtr& changed, kuMessage& message);
  static QString getNodePath(const osg::NodePtr& of);

  QString overlay;
};

#pragma once

#include "host/osg/Node.h"
#include "model/kuVariant.h"

class kuMessage;

/**
 * A variant over the light nodes of one name, with the options "!Enable", "!Disable" and
 * "!Toggle". The binding is by name only: each operation looks the nodes up anew.
 */
class KUVARIANTS_EXPORT kuLightVariant : public kuVariant {
 public:
  kuLightVariant() = default;
  /** Takes name, options and default from a light; a node that is none gives only the name. */
  explicit kuLightVariant(const osg::NodePtr& source);

  /** Name of the light nodes that this variant drives. */
  QString getNode() const { return node; }
  void setNode(const QString& newNode) { node = newNode; }

  /**
   * Rebuilds the options from the scene. Unlike the other kinds it keeps no hotkey and no default.
   * Without a light the options are empty and the default stays.
   */
  void updateVariants();

 protected:
  void onSelect(const QString& state) override;
  QString onCurrent() const override;

 private:
  friend class kuVariantReader;
  friend struct kuVariantsTestAccess;

  void addOptions(const osg::NodePtr& light);
  static void callVariantsLightChanged(const osg::NodePtr& changed, kuMessage& message);
  static QString getNodePath(const osg::NodePtr& of);

  QString node;
};

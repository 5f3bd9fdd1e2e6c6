#pragma once

#include "host/osg/Node.h"
#include "model/kuVariant.h"

class kuMessage;

/**
 * A variant over all nodes of one name. What a state means depends on the core of the node:
 *
 * - a switch: the names of its children, "!All", "!None" and the four steps;
 * - a transform with several states: "Transform %u" with the index from 0, and the four steps;
 * - any other node: "!Enable", "!Disable" and "!Toggle".
 *
 * The binding is by name only. Each operation looks the nodes up anew, so a variant survives a
 * reload of the scene and does nothing while its node is absent. A selection drives all nodes of
 * the name; the present state is that of the first one.
 */
class KUVARIANTS_EXPORT kuNodeVariant : public kuVariant {
 public:
  kuNodeVariant() = default;
  /** Takes name, options and default from a node; an unnamed one leaves the names empty. */
  explicit kuNodeVariant(const osg::NodePtr& source);

  /** Name of the nodes that this variant drives. */
  QString getNode() const { return node; }
  /** Binds the variant to other nodes; the options stay as they are. */
  void setNode(const QString& newNode) { node = newNode; }

  /**
   * Rebuilds the options from the scene and keeps the hotkeys of those that remain. Without a node
   * the options are empty and the default stays.
   */
  void updateVariants();

  /** Sets everything at and below the nodes active. */
  void showGeometry();
  /** Sets the geometries at and below the nodes inactive; groups and switches keep their flag. */
  void hideGeometry();

 protected:
  void onSelect(const QString& state) override;
  QString onCurrent() const override;

 private:
  friend class kuVariantReader;
  friend struct kuVariantsTestAccess;

  // One selection while it runs. It and what it calls need no variant: a receiver of its messages
  // may delete the one that is being selected.
  class Selection;

  static void callVariantsNodesChanged(const osg::NodePtr& changed, kuMessage& message);
  static QString getNodePath(const osg::NodePtr& of);
  static void recurseEnable(const osg::NodePtr& start);
  static void pushEnable(const osg::NodePtr& start);
  static void pushDisable(const osg::NodePtr& start);

  QString node;
};

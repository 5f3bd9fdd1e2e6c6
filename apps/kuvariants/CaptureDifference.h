#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "host/kuSceneInterface.h"

class kuVariantSet;

/** A switch material that a capture made, or that sets came to select by it. */
struct SwitchChange {
  QString name;
  /** Whether the material is new. */
  bool isNew = false;
  /** Whether the scene's own file has it, so that a document makes nothing of it anew. */
  bool isOfFile = false;
  /** Whether it is a switch of environments. */
  bool isOfEnvironments = false;
  /** Whether its variant is new. */
  bool isVariantNew = false;
  QStringList materials;
  /** Those of the materials that it had not held before. */
  QStringList added;
  /** The paths of the nodes that bear it. */
  QStringList nodes;
  /** The states that sets have for it since: set and state, in the manager's order. */
  std::vector<std::pair<QString, QString>> states;
};

/** A node or a transform state that got another name. */
struct Renaming {
  /** The path of the node before. */
  QString path;
  /** Empty for the node itself. */
  QString transformState;
  QString newName;
};

/** How materials, sets and names stand before a capture, to tell afterwards what is different. */
class CaptureDifference {
 public:
  CaptureDifference();

  /** Those that changed, in the order in which the capture into that set came to them. */
  std::vector<SwitchChange> switches(const kuVariantSet& captured) const;
  std::vector<Renaming> renamings() const;

 private:
  struct NamedNode {
    osg::NodePtr node;
    std::string name;
    QString path;
    std::vector<std::string> transformStates;
  };
  /** A set's states of material variants, by variant. */
  using States = QHash<QString, QString>;
  using StateList = std::vector<std::pair<QString, QString>>;

  void noteNames();
  std::vector<osg::MaterialPtr> addedTo(const osg::SwitchMaterialPtr& material) const;
  /** The states that sets have now and had not before, by variant. */
  QHash<QString, StateList> newStates() const;
  bool isChanged(const osg::SwitchMaterialPtr& material, const StateList& states) const;
  SwitchChange changeOf(const osg::SwitchMaterialPtr& material, const StateList& states) const;

  std::map<osg::SwitchMaterialPtr, osg::MFMaterialPtr> _materials;
  /** Those that the scene's own file has as variants. */
  std::set<osg::MaterialPtr> _fileSwitches;
  QSet<QString> _variants;
  /** By set. */
  QHash<QString, States> _states;
  /** Only where nodes share names, since no others are renamed. */
  std::vector<NamedNode> _nodes;
};

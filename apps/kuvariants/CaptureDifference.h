#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <utility>
#include <vector>

#include "host/kuSceneInterface.h"

/** A switch material that a capture made, or that sets came to select by it. */
struct SwitchChange {
  QString name;
  /** Whether the material is new. */
  bool isNew = false;
  /** Whether the scene's own file has it, so that a document makes nothing of it anew. */
  bool isOfFile = false;
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
  ~CaptureDifference();
  CaptureDifference(const CaptureDifference&) = delete;
  CaptureDifference& operator=(const CaptureDifference&) = delete;

  /** Those that the capture came to, in its order. */
  std::vector<SwitchChange> switches() const;
  std::vector<Renaming> renamings() const;

 private:
  struct NamedNode {
    osg::NodePtr node;
    std::string name;
    QString path;
    std::vector<std::string> transformStates;
  };
  using States = std::map<QString, QString>;
  using StateList = std::vector<std::pair<QString, QString>>;

  void noteNames();
  void note(const osg::FieldContainer& edited);
  QStringList addedTo(const osg::SwitchMaterialPtr& material) const;
  /** The states that sets have for the variant and had not before. */
  StateList newStatesFor(const QString& variant) const;
  SwitchChange changeOf(const osg::SwitchMaterialPtr& material) const;
  bool isChanged(const SwitchChange& change) const;

  std::map<osg::SwitchMaterialPtr, osg::MFMaterialPtr> _materials;
  QStringList _variants;
  /** For each set its states of material variants. */
  std::map<QString, States> _states;
  /** Only where nodes share names, since no others are renamed. */
  std::vector<NamedNode> _nodes;
  /** The switches that were edited, in order. */
  std::vector<osg::SwitchMaterialPtr> _edited;
};

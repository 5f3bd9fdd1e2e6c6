#pragma once

#include <qnamespace.h>
#include <QByteArray>
#include <QFlags>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/osg/Geometry.h"
#include "host/osg/Material.h"
#include "host/osg/MaterialGroup.h"
#include "host/osg/Node.h"
#include "host/osg/SwitchMaterial.h"
#include "host/utils/kuNodePtr.h"
#include "manager/kuNamedList.h"
#include "model/kuVariantsExport.h"

class QProgressDialog;
class kuLightVariant;
class kuMaterialVariant;
class kuMessage;
class kuNodeVariant;
class kuOverlayVariant;
class kuTransformVariant;
class kuVariant;
class kuVariantGroup;
class kuVariantSet;

/** The kinds of variants. The numbers go over the wire to partners, so they are fixed. */
enum VariantType : int {
  LightVariantType = 0,
  MaterialVariantType = 1,
  NodeVariantType = 2,
  OverlayVariantType = 3,
  TransformVariantType = 4,
  UnknownVariantType = -1
};

/**
 * The one owner of all variants, variant sets and variant groups: each is created, found and
 * removed here. All of it is static; the single instance carries the registration of the one
 * message that the library listens to, "clearAllVariants". Main thread only.
 *
 * Look-ups by name compare exactly and answer the first of the list; an empty name finds nothing.
 */
class KUVARIANTS_EXPORT kuVariants {
 public:
  static kuVariants* the();

  // The lists, in the order of creation.
  static const std::vector<kuNodeVariant*>& getNodeVariants() { return _nodeVariants.entries(); }
  static const std::vector<kuMaterialVariant*>& getMaterialVariants() {
    return _materialVariants.entries();
  }
  static const std::vector<kuLightVariant*>& getLightVariants() { return _lightVariants.entries(); }
  static const std::vector<kuOverlayVariant*>& getOverlayVariants() {
    return _overlayVariants.entries();
  }
  static const std::vector<kuTransformVariant*>& getTransformVariants() {
    return _transformVariants.entries();
  }
  static const std::vector<kuVariantSet*>& getVariantSets() { return _variantSets.entries(); }
  static const std::vector<kuVariantGroup*>& getVariantGroups() { return _variantGroups.entries(); }

  // The first variant of that name, or null.
  static kuNodeVariant* findNodeVariant(const QString& name);
  static kuMaterialVariant* findMaterialVariant(const QString& name);
  static kuLightVariant* findLightVariant(const QString& name);
  static kuOverlayVariant* findOverlayVariant(const QString& name);
  static kuTransformVariant* findTransformVariant(const QString& name);
  /** The same in the list of a kind; null for a number that is no kind. */
  static kuVariant* findVariant(VariantType type, const QString& name);
  static VariantType getVariantType(const kuVariant* variant);

  // Creation by name: a variant of that name is answered as it is, otherwise a new one without
  // options, bound to nothing. An empty name gives a nameless variant, but null for an overlay.
  static kuNodeVariant* createNodeVariant(const QString& name, bool sendMessage);
  static kuMaterialVariant* createMaterialVariant(const QString& name, bool sendMessage);
  static kuLightVariant* createLightVariant(const QString& name, bool sendMessage);
  static kuOverlayVariant* createOverlayVariant(const QString& name, bool sendMessage);
  static kuTransformVariant* createTransformVariant(const QString& name, bool sendMessage);

  // Creation from the scene: name, options and default come from the object. A variant of that name
  // is answered as it is. Null for an unnamed object, and for a node without transform states where
  // a transform variant is asked for.
  static kuNodeVariant* createNodeVariant(osg::NodePtr node, bool sendMessage);
  /** A plain material is wrapped in a switch material; the variant bears the switch's name. */
  static kuMaterialVariant* createMaterialVariant(osg::MaterialPtr material, bool sendMessage);
  static kuLightVariant* createLightVariant(osg::NodePtr node, bool sendMessage);
  static kuOverlayVariant* createOverlayVariant(osg::NodePtr node, bool sendMessage);
  static kuTransformVariant* createTransformVariant(osg::NodePtr node, bool sendMessage);

  // Removal of the first variant of that name. Announced, and answered with true, also where
  // nothing was found; false and silence for the empty name. Sets that name it stay as they are.
  static bool removeNodeVariant(const QString& name);
  static bool removeMaterialVariant(const QString& name);
  static bool removeLightVariant(const QString& name);
  static bool removeOverlayVariant(const QString& name);
  static bool removeTransformVariant(const QString& name);

  // Removal of all variants of a kind.
  static void clearNodeVariants();
  static void clearMaterialVariants();
  static void clearLightVariants();
  static void clearOverlayVariants();
  static void clearTransformVariants();

  /** A new set; null for an empty name and for one that exists. @p group may be null. */
  static kuVariantSet* createVariantSet(const QString& name, bool sendMessage,
                                        kuVariantGroup* group);
  static kuVariantSet* findVariantSet(const QString& name);
  static kuVariantSet* getVariantSet(unsigned id);
  /** Always true; silent where there is no such set. The empty name removes a nameless one. */
  static bool removeVariantSet(const QString& name);
  static void clearVariantSets();
  /** @p base itself if no set bears it, otherwise a name made from it that is free. */
  static QString getUniqueVariantSetName(QString base);
  static std::vector<kuVariantSet*> getUngroupedVariantSets();

  /** A new group; null for an empty name and for one that exists. */
  static kuVariantGroup* createVariantGroup(const QString& name, bool sendMessage, bool visible);
  static kuVariantGroup* findVariantGroup(const QString& name);
  static kuVariantGroup* getVariantGroup(unsigned id);
  static int countVariantGroup(const QString& name);
  /** As removeVariantSet; the group's sets live on, ungrouped. */
  static bool removeVariantGroup(const QString& name);
  static void clearVariantGroups();
  static QString getUniqueVariantGroupName(QString base);

  /**
   * Selects a set with all its side effects; nothing happens for a name that no set bears.
   * @param name UTF-8; @param skipViewpoint leaves the camera alone.
   */
  static void selectVariantSet(const char* name, bool skipViewpoint);

  /**
   * Takes the present scene into a new set with a preview, in a group that is made where it is
   * missing. Duplicate node names are asked about first; a refusal ends it with nothing changed.
   * @param setName, groupName UTF-8; a set's name that is in use is made unique, an empty group's
   * name stands for "New Group 1".
   */
  static void createAndCaptureVariantSet(const char* setName, const char* groupName);
  /**
   * Makes the present scene below the roots the content of a set, in the place of what it held.
   * Other sets get states too, where switch materials are made to hold their materials and this
   * set's. What a message's receiver throws goes through; the set then holds what was taken so far.
   * @param inclEnv environment switches and environment materials.
   * @param sendMessage announce new variants.
   * @param useSetNameForView the viewpoint takes the set's name, else that and " View".
   */
  static void captureVariantsFromRootNodes(kuVariantSet* set, std::vector<kuNodePtr> roots,
                                           bool inclNodes, bool inclMats, bool inclLights,
                                           bool inclEnv, bool inclView, bool inclTransforms,
                                           bool inclRenderLayers, bool inclSceneplates,
                                           bool sendMessage, bool useSetNameForView);
  /** Takes the sceneplates that are not simply shown into a set. */
  static void captureSceneplateVariants(kuVariantSet* set, bool sendMessage);
  /** The names from below the scene's root down to the node, separated by "/". */
  static QString getNodePath(kuNodePtr node);
  /** Makes a dialogue the one that a capture shows, and shows it. Null does nothing. */
  static void initVSetProgressDialog(QProgressDialog* dialog);
  /** Whether a capture may go on: asks the user where nodes have one name, and renames them. */
  static bool verifyNodeNames();
  /** Asks whether nodes are to be renamed; true for yes. */
  static bool showAmbiguousNodesDialog(bool warnAboutVariantSets);
  /**
   * Puts the materials back that the sets remember for each node, then selects a set by the script
   * command selectVariantSet. @param name UTF-8; a name that no set bears selects nothing.
   */
  static void activateCapturedVariantSet(const char* name);
  /**
   * Gives every node the material that the sets remember for its path, the last set deciding. It
   * reads the index of node paths as it stands; activateCapturedVariantSet makes it anew.
   */
  static void restoreSwitchNodes();

  /** Sheds from every set what the present scene no longer has; see kuVariantSet::optimize. Sets
   * and groups stay, also those that it empties. */
  static void optimizeVariantSets();
  /** Whether a set holds nothing; see kuVariantSet::isEmpty. */
  static bool hasEmptyVariantSets();
  /** Whether a group has no sets. */
  static bool hasEmptyGroups();
  /** Removes the sets that hold nothing, and announces each. */
  static void clearEmptyVariantSets();
  /** Removes the groups without sets, the last first, and announces each. */
  static void clearEmptyGroups();

  /** Renders the present scene at the size of a preview, 264 by 256; otherwise as below. */
  static QByteArray createPreviewImage(bool showProgress, bool forceRaytracingSetting);
  /**
   * Renders the present scene into an image file in memory, whatever the host makes of it; empty
   * where it makes nothing. It returns when the picture is done.
   * @param forceRaytracingSetting renders with the setting of a finished picture where the renderer
   * is in raytracing mode; the host's own setting is put back.
   */
  static QByteArray createPreviewImage(int width, int height, bool showProgress,
                                       bool forceRaytracingSetting);
  /**
   * Makes a set's preview, and refreshes the camera of its default viewpoint. Null does nothing.
   * @param useFrameBuffer takes the middle of the frame on screen instead of rendering, and the
   * other flags then do nothing; without a frame the preview is empty.
   */
  static void renderVariantSetPreview(kuVariantSet* set, bool useFrameBuffer, bool showProgress,
                                      bool forceRaytracingSetting);

  /** Empties the manager and announces each kind, sets and groups. The message is not read. */
  static void clearAll(kuMessage& message);
  /** Announces that everything may have changed. */
  static void sendVariantsChanged();
  /** Tells the user interface which variants a set uses; nothing for an unknown name. */
  static void showConnectedVariants(QString setName);

  /**
   * Hotkey text to key and modifiers: the first key combination of the text as QKeySequence reads
   * it in its native form. Gives 0 and 0 for a text that is empty or cannot be read.
   */
  static void mapHotkey(const QString& hotkey, int& key, QFlags<Qt::KeyboardModifier>& modifier);

  /**
   * The host's switch for how far turning a node on reaches: with it on, also its subtree and its
   * inactive ancestors up to the first active one. Off at first.
   */
  static void setRecursion(bool recurse);
  static bool getRecursion();

  /** Translation in the context "kuVariants". */
  static QString tr(const char* sourceText, const char* comment = nullptr, int n = -1);
  static QString trUtf8(const char* sourceText, const char* comment = nullptr, int n = -1);

  kuVariants(const kuVariants&) = delete;
  kuVariants& operator=(const kuVariants&) = delete;

 private:
  friend struct kuVariantsTestAccess;

  kuVariants();
  virtual ~kuVariants();

  /** Takes a set of the list out, announces that, and deletes it. */
  static void discard(kuVariantSet* set);
  /** From that index on, up to the last set whose id is not above @p lastId; answers the index
   * where it ended. */
  static std::size_t clearEmptyVariantSets(std::size_t index, std::uint32_t lastId);

  /** A PNG file of the middle of the frame on screen; empty without one. The set is not used. */
  static QByteArray getPreviewImageFromFrameBuffer(kuVariantSet* set);

  /** What one capture or restore has met so far. */
  using MaterialSnapshots = std::map<QString, QString>;
  using NodePaths = std::set<QString>;
  using Switches = std::set<osg::SwitchMaterialPtr>;
  using Materials = std::set<osg::MaterialPtr>;

  class CaptureWalk;
  class SnapshotComparison;

  // The walk of a capture.
  static void captureVariantsFromRootNode(kuVariantSet* set, kuNodePtr node, bool inclNodes,
                                          bool inclMats, bool inclLights, bool inclEnv,
                                          bool inclTransforms, bool inclRenderLayers,
                                          MaterialSnapshots& snapshots,
                                          std::vector<kuNodePtr> roots, NodePaths& handledPaths,
                                          Switches& createdSwitches, Materials& handledMaterials,
                                          bool sendMessage);
  /** Whether the walk may go on below the node; an inactive one is taken into the set. */
  static bool checkAndSetNodeActive(osg::NodePtr node, kuVariantSet* set, bool& inclNodes,
                                    bool& sendMessage);
  static void addMaterialGroupIgnoreToVSet(osg::NodePtr node, osg::MaterialGroupPtr group,
                                           kuVariantSet* set);
  static void captureMaterials(kuVariantSet* set, osg::MaterialPtr& material, bool sendMessage);
  static void captureMaterialVariantFromMultiStateMaterial(kuVariantSet* set,
                                                           osg::MaterialPtr& material,
                                                           bool sendMessage);
  static void rebuildNodePathIndex();
  static void collectSceneplateStates(kuNodePtr node, std::map<QString, QString>& states);
  static QString getSceneplateState(kuNodePtr node);

  // Materials that differ between sets.
  static void handleMaterialSnapshots(kuVariantSet* set, kuNodePtr node, QString path,
                                      osg::MaterialPtr material, std::vector<kuNodePtr> roots,
                                      NodePaths& handledPaths, Switches& createdSwitches,
                                      Materials& handledMaterials, bool isCapturing,
                                      bool sendMessage);
  static bool checkIfNodeMatchesNodePath(osg::NodePtr node, const char* path, bool applyToAll);
  /** The first of the nodes of that path, or null. */
  static osg::NodePtr firstNodeOfPath(const char* path);
  static void keepNodesWithPath(std::vector<kuNodePtr>& nodes, const char* path);
  static void changeMaterial(osg::NodePtr node, osg::MaterialPtr material);
  static bool compareSwitches(osg::SwitchMaterialPtr a, osg::SwitchMaterialPtr b);
  static bool checkIfMaterialAlreadyAdded(osg::MaterialPtr material, osg::SwitchMaterialPtr target);
  static bool checkForMaterialRecursion(osg::MaterialPtr material, osg::SwitchMaterialPtr target);
  static void createSwitchAndAddMaterial(osg::NodePtr node, osg::MaterialPtr material,
                                         osg::SwitchMaterialPtr& switchMaterial,
                                         Switches& createdSwitches);
  static void addMaterialToExistingSwitch(osg::NodePtr node, osg::SwitchMaterialPtr& otherSwitch,
                                          osg::MaterialPtr& material,
                                          osg::SwitchMaterialPtr& switchMaterial, kuVariantSet* set,
                                          kuVariantSet* otherSet, Materials& handledMaterials,
                                          QString path, bool& sendMessage);
  static void duplicateSwitchAndAddMaterial(osg::NodePtr node, osg::SwitchMaterialPtr& otherSwitch,
                                            osg::MaterialPtr& material,
                                            osg::SwitchMaterialPtr& switchMaterial,
                                            kuVariantSet* set, kuVariantSet* otherSet,
                                            Materials& handledMaterials, Switches& createdSwitches,
                                            QString path, bool& switchDuplicated,
                                            bool& sendMessage);
  static void optimizeMaterialSwitches(kuNodePtr node, QString path, osg::MaterialPtr oldMaterial,
                                       osg::SwitchMaterialPtr target, Switches& createdSwitches);
  static void restoreSwitchNodesHlp(kuVariantSet* set, kuNodePtr node, MaterialSnapshots& snapshots,
                                    std::vector<kuNodePtr> roots, NodePaths& handledPaths,
                                    Switches& createdSwitches, Materials& handledMaterials,
                                    bool sendMessage);

  /** Hash of a node path to the nodes of that hash. */
  static std::unordered_map<std::uint32_t, std::vector<kuNodePtr>> _nodePathIndex;
  /** The geometry cores that a capture has met; empty between captures. */
  static std::unordered_set<osg::GeometryPtr> _capturedGeometryCores;

  static kuNamedList<kuNodeVariant> _nodeVariants;
  static kuNamedList<kuMaterialVariant> _materialVariants;
  static kuNamedList<kuLightVariant> _lightVariants;
  static kuNamedList<kuOverlayVariant> _overlayVariants;
  static kuNamedList<kuTransformVariant> _transformVariants;
  static kuNamedList<kuVariantSet> _variantSets;
  static kuNamedList<kuVariantGroup> _variantGroups;
  static bool _recurse;
  static kuVariants _the;
};

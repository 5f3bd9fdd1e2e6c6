#pragma once

#include <qnamespace.h>
#include <QByteArray>
#include <QFlags>
#include <QMap>
#include <QString>
#include <QVector>
#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <vector>

#include "host/osg/Node.h"
#include "model/kuObservedName.h"
#include "model/kuVariantStates.h"
#include "scene/kuAnalyzerVariant.h"

class kuLightVariant;
class kuMaterialVariant;
class kuNodeVariant;
class kuOverlayVariant;
class kuSceneNames;
class kuTransformVariant;
class kuVariantGroup;

/**
 * A named collection of things to do at one stroke: a state for each of a number of variants, with
 * viewpoints, animations, a script, clipping settings and more. kuVariants owns the sets of a
 * running application.
 *
 * A set names its variants and holds no pointer to them. A state stays in the set when its variant
 * goes away, and comes to life again when a variant of that name is made.
 */
class KUVARIANTS_EXPORT kuVariantSet {
 public:
  /** A nameless set; the manager makes sets by name. */
  kuVariantSet();
  explicit kuVariantSet(const QString& setName);
  /** Copies every member, id and group included; the copy is not in the group's list. */
  kuVariantSet(const kuVariantSet&) = default;
  kuVariantSet& operator=(const kuVariantSet&) = default;
  /** Leaves the group. */
  ~kuVariantSet();

  const QString& getName() const { return name.text(); }
  /** Renames the set and announces it. The name is not checked for uniqueness. */
  void setName(const QString& newName);

  const QString& getComment() const { return comment; }
  void setComment(const QString& text) { comment = text; }

  /** The hotkey in its text form, as it was given. */
  const QString& getHotkey() const { return hotkey; }
  void setHotkey(const QString& text);
  /** The key code of the hotkey; -1 until a hotkey was set, 0 for one that is empty or cannot be
   * read. */
  int getShortcutKey() const { return shortcutKey; }
  QFlags<Qt::KeyboardModifier> getShortcutModifier() const { return shortcutModifier; }

  /** Script text that a selection runs. */
  const QString& getScript() const { return script; }
  void setScript(const QString& text) { script = text; }
  /** Appends text on a line of its own. */
  void appendToScript(const QString& text);

  bool getShowInVRMenu() const { return showInVRMenu; }
  void setShowInVRMenu(bool show) { showInVRMenu = show; }
  /** Whether selecting the set travels to collaboration partners. */
  bool getSyncInCollaboration() const { return syncInCollaboration; }
  void setSyncInCollaboration(bool sync) { syncInCollaboration = sync; }

  /** The group that the set is in; null for an ungrouped set. Only the group changes it. */
  kuVariantGroup* getGroup() const { return group; }
  /** Number of the set in this process. */
  std::uint32_t id() const { return _id; }

  /**
   * Puts the set into effect. A set that is shared with the partners of a session is put into
   * effect by the session, here and there.
   * @param execute also runs script, clipping settings, animations and the default viewpoint.
   * @param skipViewpoint leaves the camera alone.
   * @param instantaneous handed on to the animations that are started.
   */
  void select(bool execute, bool skipViewpoint, bool instantaneous);
  /** Puts the set's variants, overlays excepted, into their own default states. */
  void selectDefault();
  /** Runs the script, also an empty one. */
  void executeScript();
  /** Applies the clipping settings. */
  void executeAnalyzer();
  /**
   * What the scene shows of the set's variants: one table per kind (node, material, transform,
   * light, overlay), from the variant's name to its current state, which need not be the set's.
   * Entries that the tables held stay. Variants that the manager does not have are left out.
   * @param cursor the set's place in its animations.
   */
  void getCurrentState(QVector<QMap<QString, QString>>& states, int& cursor);
  /** Gives the set that place, and puts every variant that the tables name into its state, unless
   * it stands there; with fewer than five tables the place alone. The set's own states stay. */
  void setCurrentState(const QVector<QMap<QString, QString>>& states, int cursor);
  /** Tells the user interface which variants the set uses. */
  void showConnectedVariants();

  /**
   * Sheds what no longer refers to anything in the present scene: states, geometries, viewpoints
   * and animations. What cannot be judged stays, so the state of a variant that the manager does
   * not have. Nobody is told.
   */
  void optimize();
  /** Whether the set holds no states, geometries, viewpoints, animations, script or clipping;
   * material snapshots, target nodes and values do not count. */
  bool isEmpty() const;
  /** Whether anything of the set reaches the present scene; transform states, script and clipping
   * do not count. */
  bool isUsed() const;

  // The states of the five kinds. add: an empty state takes the variant's default; an entry of that
  // variant keeps its place. add...Variant: the same by name, but an empty state stays empty. find:
  // null without an entry, otherwise good until the entry is removed. remove: the first entry of
  // that name, if any. contains: by UTF-8.

  void add(kuNodeVariant* variant, const QString& state);
  void addNodeVariant(const QString& variant, const QString& state);
  kuVariantState* findNodeVariant(const QString& variant);
  void removeNodeVariant(const QString& variant);
  kuVariantState* find(kuNodeVariant* variant);
  void remove(kuNodeVariant* variant);
  void clearNodeVariants() { nodeVariants.clear(); }
  const std::list<kuVariantState>& getNodeVariants() const { return nodeVariants; }
  bool containsNodeVariant(std::string variant);

  void add(kuMaterialVariant* variant, const QString& state);
  void addMaterialVariant(const QString& variant, const QString& state);
  kuVariantState* findMaterialVariant(const QString& variant);
  void removeMaterialVariant(const QString& variant);
  kuVariantState* find(kuMaterialVariant* variant);
  void remove(kuMaterialVariant* variant);
  void clearMaterialVariants() { materialVariants.clear(); }
  const std::list<kuVariantState>& getMaterialVariants() const { return materialVariants; }
  bool containsMaterialVariant(std::string variant);

  void add(kuLightVariant* variant, const QString& state);
  void addLightVariant(const QString& variant, const QString& state);
  kuVariantState* findLightVariant(const QString& variant);
  void removeLightVariant(const QString& variant);
  kuVariantState* find(kuLightVariant* variant);
  void remove(kuLightVariant* variant);
  void clearLightVariants() { lightVariants.clear(); }
  const std::list<kuVariantState>& getLightVariants() const { return lightVariants; }
  bool containsLightVariant(std::string variant);

  void add(kuOverlayVariant* variant, const QString& state);
  void addOverlayVariant(const QString& variant, const QString& state);
  kuVariantState* findOverlayVariant(const QString& variant);
  void removeOverlayVariant(const QString& variant);
  void clearOverlayVariants() { overlayVariants.clear(); }
  const std::list<kuVariantState>& getOverlayVariants() const { return overlayVariants; }
  bool containsOverlayVariant(std::string variant);

  void add(kuTransformVariant* variant, const QString& state);
  void addTransformVariant(const QString& variant, const QString& state);
  kuVariantState* findTransformVariant(const QString& variant);
  void removeTransformVariant(const QString& variant);
  kuVariantState* find(kuTransformVariant* variant);
  void remove(kuTransformVariant* variant);
  void clearTransformVariants() { transformVariants.clear(); }
  const std::list<kuVariantState>& getTransformVariants() const { return transformVariants; }
  bool containsTransformVariant(const std::string& variant);

  /** Appends a name unless it is there. */
  void addViewpoint(const QString& viewpoint);
  /** Takes a name out, if it is there; if it was the default viewpoint, there is none any more. */
  void removeViewpoint(const QString& viewpoint);
  void clearViewpoints() { viewpoints.clear(); }
  const std::list<QString>& getViewpoints() const { return viewpoints; }
  /** The viewpoint activated at the end of a selection; need not be in the list. */
  const QString& getDefaultViewpoint() const { return defaultViewpoint; }
  void setDefaultViewpoint(const QString& viewpoint) { defaultViewpoint = viewpoint; }

  void addAnimation(const QString& animation);
  /** Takes a name out, if it is there; the cursor stays. */
  void removeAnimation(const QString& animation);
  void clearAnimations() { animations.clear(); }
  const std::vector<QString>& getAnimations() const { return animations; }
  /** True: each selection starts the next animation; false: all of them. */
  bool getSequentialAnimation() const { return sequentialAnimation; }
  void setSequentialAnimation(bool sequential) { sequentialAnimation = sequential; }

  void addGeometry(const QString& geometry);
  void removeGeometry(const QString& geometry);
  void clearGeometries() { geometries.clear(); }
  const std::list<QString>& getGeometries() const { return geometries; }
  /** Sets everything at and below the geometries' nodes active. */
  void showGeometry();
  /** Sets the geometry nodes at and below them inactive; groups stay as they are. */
  void hideGeometry();

  void addTargetNodeName(const QString& node);
  void clearTargetNodeNames() { targetNodeNames.clear(); }
  const std::list<QString>& getTargetNodeNames() const { return targetNodeNames; }

  /** Free key/value pairs. add inserts or overwrites; get answers an empty text for a key that is
   * not there. */
  void addValue(const QString& key, const QString& value);
  void removeValue(const QString& key);
  QString getValue(const QString& key) const;
  bool containsValue(const QString& key) const;
  void clearValues() { values.clear(); }
  const std::map<QString, QString>& getValues() const { return values; }

  /** Material snapshots: node path to material name, in the same manner. */
  void addMaterialSnapshot(const QString& nodePath, const QString& material);
  void removeMaterialSnapshot(const QString& nodePath);
  QString getMaterialSnapshot(const QString& nodePath) const;
  bool containsMaterialSnapshot(const QString& nodePath) const;
  void clearMaterialsSnapshot() { materialSnapshots.clear(); }
  const std::map<QString, QString>& getMaterialSnapshots() const { return materialSnapshots; }
  void setMaterialSnapshots(std::map<QString, QString> snapshots);

  /** The preview picture as a file in memory; empty without one. */
  const QByteArray& getPreview() const { return preview; }
  void setPreview(QByteArray file) { preview = std::move(file); }

  /** What a capture took into the set. */
  void getInclInfo(bool& nodes, bool& mats, bool& lights, bool& env, bool& view,
                   bool& sceneplates) const;
  void setInclInfo(bool nodes, bool mats, bool lights, bool env, bool view, bool sceneplates);

  const kuAnalyzerVariant& getAnalyzerVariant() const { return analyzerVariant; }
  void setAnalyzerVariant(const kuAnalyzerVariant& settings) { analyzerVariant = settings; }

  // The clipping settings, as kuAnalyzerVariant describes them; colours from 0 to 1.
  void setClippingState(int value) { analyzerVariant.clipState = value; }
  int getClippingState() const { return analyzerVariant.clipState; }
  void setClippingPlanePositionX(double value) {
    analyzerVariant.clipPlanePosition[0] = static_cast<float>(value);
  }
  void setClippingPlanePositionY(double value) {
    analyzerVariant.clipPlanePosition[1] = static_cast<float>(value);
  }
  void setClippingPlanePositionZ(double value) {
    analyzerVariant.clipPlanePosition[2] = static_cast<float>(value);
  }
  const osg::Vector<float, 3>& getClippingPlanePosition() const {
    return analyzerVariant.clipPlanePosition;
  }
  void setClippingPlaneNormalX(double value) {
    analyzerVariant.clipPlaneNormal[0] = static_cast<float>(value);
  }
  void setClippingPlaneNormalY(double value) {
    analyzerVariant.clipPlaneNormal[1] = static_cast<float>(value);
  }
  void setClippingPlaneNormalZ(double value) {
    analyzerVariant.clipPlaneNormal[2] = static_cast<float>(value);
  }
  const osg::Vector<float, 3>& getClippingPlaneNormal() const {
    return analyzerVariant.clipPlaneNormal;
  }
  void setClippingInvert(bool value) { analyzerVariant.clipPlaneInvert = value; }
  bool getClippingInvert() const { return analyzerVariant.clipPlaneInvert; }
  void setClippingHideScene(bool value) { analyzerVariant.clipPlaneHideScene = value; }
  bool getClippingHideScene() const { return analyzerVariant.clipPlaneHideScene; }
  void setClippingShowPlane(bool value) { analyzerVariant.clipPlaneShow = value; }
  bool getClippingShowPlane() const { return analyzerVariant.clipPlaneShow; }
  void setClippingPlaneColorR(double value) {
    analyzerVariant.clipPlaneColor[0] = static_cast<float>(value);
  }
  void setClippingPlaneColorG(double value) {
    analyzerVariant.clipPlaneColor[1] = static_cast<float>(value);
  }
  void setClippingPlaneColorB(double value) {
    analyzerVariant.clipPlaneColor[2] = static_cast<float>(value);
  }
  const osg::Vector<float, 3>& getClippingPlaneColor() const {
    return analyzerVariant.clipPlaneColor;
  }
  void setClippingShowGrid(bool value) { analyzerVariant.clipGridShow = value; }
  bool getClippingShowGrid() const { return analyzerVariant.clipGridShow; }
  void setClippingGridColorR(double value) {
    analyzerVariant.clipGridColor[0] = static_cast<float>(value);
  }
  void setClippingGridColorG(double value) {
    analyzerVariant.clipGridColor[1] = static_cast<float>(value);
  }
  void setClippingGridColorB(double value) {
    analyzerVariant.clipGridColor[2] = static_cast<float>(value);
  }
  const osg::Vector<float, 3>& getClippingGridColor() const {
    return analyzerVariant.clipGridColor;
  }
  void setClippingShowContour(bool value) { analyzerVariant.clipContourShow = value; }
  bool getClippingShowContour() const { return analyzerVariant.clipContourShow; }
  void setClippingContourColorR(double value) {
    analyzerVariant.clipContourColor[0] = static_cast<float>(value);
  }
  void setClippingContourColorG(double value) {
    analyzerVariant.clipContourColor[1] = static_cast<float>(value);
  }
  void setClippingContourColorB(double value) {
    analyzerVariant.clipContourColor[2] = static_cast<float>(value);
  }
  const osg::Vector<float, 3>& getClippingContourColor() const {
    return analyzerVariant.clipContourColor;
  }
  void setClippingContourWidth(int value) { analyzerVariant.clipContourWidth = value; }
  int getClippingContourWidth() const { return analyzerVariant.clipContourWidth; }

  /**
   * Empties the set. Name, id, group, geometries, preview, clipping settings, both flags and what a
   * capture took in stay as they are.
   */
  void clear();

 private:
  friend class kuVariantGroup;
  friend class kuVariantReader;
  friend class kuVariants;
  template <class Entry>
  friend class kuNamedList;
  friend struct kuVariantsTestAccess;

  /** Keeps the content of a set that is destroyed in the midst of work on it. */
  class Keeper;
  /** The keepers at work, the innermost first. They belong to one object and are not copied. */
  struct Keepers {
    Keepers() = default;
    Keepers(const Keepers&) {}
    Keepers& operator=(const Keepers&) { return *this; }
    Keeper* innermost = nullptr;
  };

  void updateShortcut();
  void optimize(kuSceneNames& scene);
  void showTargetNodes();
  static void startAnimations(const Keeper& set, bool instantaneous);
  void pushEnable(osg::NodePtr node);
  void pushDisable(osg::NodePtr node);

  static std::uint32_t _nextId;

  kuObservedName name;
  QString hotkey;
  QString comment;
  bool showInVRMenu = true;
  bool syncInCollaboration = true;
  QString script;
  int shortcutKey = -1;
  QFlags<Qt::KeyboardModifier> shortcutModifier;
  QString defaultViewpoint;
  std::list<QString> viewpoints;
  kuVariantStates overlayVariants;
  std::vector<QString> animations;
  int animationCursor = 0;
  bool sequentialAnimation = false;
  std::list<QString> geometries;
  kuVariantStates nodeVariants;
  kuVariantStates materialVariants;
  kuVariantStates lightVariants;
  kuVariantStates transformVariants;
  std::map<QString, QString> values;
  kuVariantGroup* group = nullptr;
  kuAnalyzerVariant analyzerVariant;
  QByteArray preview;
  std::list<QString> targetNodeNames;
  std::map<QString, QString> materialSnapshots;
  bool inclNodes = false;
  bool inclMats = false;
  bool inclLights = false;
  bool inclEnv = false;
  bool inclView = false;
  bool inclSceneplates = false;
  std::uint32_t _id;
  Keepers keepers;
};

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/osg/Vector.h"
#include "host/utils/kuMaterialPtr.h"
#include "host/utils/kuNodePtr.h"
#include "model/kuVariantsExport.h"

class kuVariantSet;

/**
 * A variant set as a script handles it: a value that points to the set and forwards to it. It owns
 * nothing and is not told when the set is removed, and must not be used after that. Without a set,
 * which is how it starts, nothing happens and every answer is empty.
 *
 * Texts are UTF-8. The texts that were answered last, of whatever sets, can be read at once; older
 * ones are gone. Main thread only.
 */
class KUVARIANTS_EXPORT kuVariantSetPtr {
 public:
  /** How many answered texts last. */
  static constexpr std::size_t lastingTexts = 8;

  kuVariantSetPtr() = default;
  kuVariantSetPtr(kuVariantSet* set) : variantSet(set) {}

  void setName(char const* name);
  char const* getName();

  /** The hotkey as text; stored as it is. */
  void setHotkeyString(char const* key);
  /** As with the modifier 0. */
  void setHotkey(int key);
  /**
   * Makes the hotkey's text of a digit or a capital in ASCII and of Qt's modifiers. Another key
   * changes nothing; other modifiers than Shift, Control and Alt, and all three at once, count as
   * none.
   */
  void setHotkey(int key, int modifier);
  char const* getHotkey();

  // States of variants, which are made where they are missing. Nothing happens for an invalid node
  // or material.

  /** A node variant's state: the list of geometries has no part in it. */
  void addGeometry(kuNodePtr node, char const* state);
  void addMaterial(kuMaterialPtr material, char const* state);
  void addLight(kuNodePtr node, char const* state);
  /** Other than the three above, nothing for a state that the node does not have. */
  void addTransfrom(kuNodePtr node, char const* state);

  void addViewpoint(char const* viewpoint);

  /** Takes the place of the present script. */
  void addScript(char const* script);
  char const* getScript() const;

  void setClippingState(int state);
  /** All of the clipping but its state, its colours and the contour's width. */
  void addClippingPlane(const osg::Pnt3f& position, const osg::Vec3f& normal, bool invertDirection,
                        bool hideScene, bool showClippingPlane, bool showGrid, bool showContour);
  /** Takes all of the clipping but its state from the application's present one. */
  void addCurrentClippingPlane();

  std::vector<std::string> getTargetNodeNames();

  void setValue(char const* key, char const* value);
  /** Empty for a key that is not there. */
  char const* getValue(char const* key) const;

 private:
  kuVariantSet* variantSet = nullptr;
};

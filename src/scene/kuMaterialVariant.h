#pragma once

#include "host/osg/Material.h"
#include "model/kuVariant.h"

/**
 * A variant over all materials of one name; its states are the states that the material itself
 * has. Any material with states can be driven, whatever its class; only switch materials can be
 * edited. Each operation looks the materials up anew.
 */
class KUVARIANTS_EXPORT kuMaterialVariant : public kuVariant {
 public:
  kuMaterialVariant() = default;
  /**
   * Takes name, options and default from a material that has states. Any other named material is
   * wrapped: a new switch of the name "<name> Switch" goes into the pool and takes its place at
   * every node that uses it. This changes the scene. An unnamed plain material gives an empty
   * variant.
   */
  explicit kuMaterialVariant(const osg::MaterialPtr& source);

  /** Name of the materials that this variant drives. */
  QString getMaterial() const { return material; }
  /** Binds the variant to other materials; the options stay as they are. */
  void setMaterial(const QString& newMaterial) { material = newMaterial; }

  /** Whether there is such a material, it may be changed, and is a switch. */
  bool isEditable() const;

  // These two names hide the operations of the base on purpose: states of a material are made from
  // sub-materials, and no option of it is added as an action.

  /** Adds an option alone, as a document lists it; the scene is not touched. */
  void add(const QString& stateName, const QString& hotkey);
  /**
   * Adds a sub-material, unless it is one already, and its option. Nothing happens unless the
   * variant is editable and the sub-material named.
   */
  void add(const osg::MaterialPtr& subMaterial, const QString& hotkey);
  /** Takes a named sub-material out, with its option; nothing unless the variant is editable. */
  void remove(const osg::MaterialPtr& subMaterial);
  /**
   * Takes the sub-materials of that name out, with the option; nothing unless the variant is
   * editable. Of two neighbours of the name the second one stays.
   */
  void remove(const QString& stateName);

  /**
   * Rebuilds the options from the scene and keeps the hotkeys of those that remain. Without a
   * material that has states the options are empty and the default stays.
   */
  void updateVariants();

  /** Sets the nodes that use the materials active. */
  void showGeometry();
  /** Sets the nodes that use the materials inactive. */
  void hideGeometry();

 protected:
  void onSelect(const QString& state) override;
  QString onCurrent() const override;

 private:
  friend class kuVariantReader;
  friend struct kuVariantsTestAccess;

  int getCurrentState(const osg::MaterialPtr& of) const;
  void takeStates(const osg::MaterialPtr& source);
  void wrap(const osg::MaterialPtr& source);

  QString material;
};

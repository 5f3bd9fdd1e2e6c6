#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"
#include "support/VariantsTest.h"

/**
 * Fixture of the tests of what sets refer to: an empty set, and variants without options that are
 * bound to whatever the scene may have.
 */
class CaptureTest : public VariantsTest {
 protected:
  using Texts = std::vector<std::string>;

  CaptureTest() : set(*kuVariants::createVariantSet("Set", false, nullptr)) {}

  static void bindNode(const QString& variant, const QString& node) {
    kuVariants::createNodeVariant(variant, false)->setNode(node);
  }
  static void bindMaterial(const QString& variant, const QString& material) {
    kuVariants::createMaterialVariant(variant, false)->setMaterial(material);
  }
  static void bindLight(const QString& variant, const QString& node) {
    kuVariants::createLightVariant(variant, false)->setNode(node);
  }
  static void bindOverlay(const QString& variant, const QString& sceneplate) {
    kuVariants::createOverlayVariant(variant, false)->setOverlay(sceneplate);
  }
  static void bindTransform(const QString& variant, const QString& node) {
    kuVariants::createTransformVariant(variant, false)->setNode(node);
  }

  /** The entries of a list of states, each as "Variant=State". */
  static Texts texts(const std::list<kuVariantState>& states) {
    Texts result;
    for (const kuVariantState& entry : states)
      result.push_back((entry.getVariant() + "=" + entry.getState()).toStdString());
    return result;
  }
  template <class Names>
  static Texts texts(const Names& names) {
    Texts result;
    for (const QString& name : names)
      result.push_back(name.toStdString());
    return result;
  }

  static kuVariantSet& makeSet(const char* name, kuVariantGroup* group = nullptr) {
    return *kuVariants::createVariantSet(name, false, group);
  }
  static kuVariantGroup* makeGroup(const char* name) {
    return kuVariants::createVariantGroup(name, false, true);
  }
  static Texts setNames() { return namesOf(kuVariants::getVariantSets()); }
  static Texts groupNames() { return namesOf(kuVariants::getVariantGroups()); }

  kuVariantSet& set;

 private:
  template <class List>
  static Texts namesOf(const List& list) {
    Texts result;
    for (const auto* entry : list)
      result.push_back(entry->getName().toStdString());
    return result;
  }
};

/** A row of a table: a name for the test, a scene, the state of the set's one entry, and whether it
 * survives the optimisation. */
struct StateRow {
  const char* name;
  void (*build)(SceneBuilder& scene);
  const char* state;
  bool stays;
};

inline void PrintTo(const StateRow& row, std::ostream* out) { *out << row.name; }

inline std::string rowName(const ::testing::TestParamInfo<StateRow>& row) { return row.param.name; }

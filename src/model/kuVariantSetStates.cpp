#include "model/kuVariantSet.h"
#include "model/kuVariantStates.h"

// The states of the five kinds by the variants' names. The overloads that take a variant stand
// beside the kinds.

void kuVariantSet::addNodeVariant(const QString& variant, const QString& state) {
  kuVariantStates::add(nodeVariants, variant, state);
}

kuVariantState* kuVariantSet::findNodeVariant(const QString& variant) {
  return kuVariantStates::find(nodeVariants, variant);
}

void kuVariantSet::removeNodeVariant(const QString& variant) {
  kuVariantStates::remove(nodeVariants, variant);
}

bool kuVariantSet::containsNodeVariant(std::string variant) {
  return findNodeVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addMaterialVariant(const QString& variant, const QString& state) {
  kuVariantStates::add(materialVariants, variant, state);
}

kuVariantState* kuVariantSet::findMaterialVariant(const QString& variant) {
  return kuVariantStates::find(materialVariants, variant);
}

void kuVariantSet::removeMaterialVariant(const QString& variant) {
  kuVariantStates::remove(materialVariants, variant);
}

bool kuVariantSet::containsMaterialVariant(std::string variant) {
  return findMaterialVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addLightVariant(const QString& variant, const QString& state) {
  kuVariantStates::add(lightVariants, variant, state);
}

kuVariantState* kuVariantSet::findLightVariant(const QString& variant) {
  return kuVariantStates::find(lightVariants, variant);
}

void kuVariantSet::removeLightVariant(const QString& variant) {
  kuVariantStates::remove(lightVariants, variant);
}

bool kuVariantSet::containsLightVariant(std::string variant) {
  return findLightVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addOverlayVariant(const QString& variant, const QString& state) {
  kuVariantStates::add(overlayVariants, variant, state);
}

kuVariantState* kuVariantSet::findOverlayVariant(const QString& variant) {
  return kuVariantStates::find(overlayVariants, variant);
}

void kuVariantSet::removeOverlayVariant(const QString& variant) {
  kuVariantStates::remove(overlayVariants, variant);
}

bool kuVariantSet::containsOverlayVariant(std::string variant) {
  return findOverlayVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addTransformVariant(const QString& variant, const QString& state) {
  kuVariantStates::add(transformVariants, variant, state);
}

kuVariantState* kuVariantSet::findTransformVariant(const QString& variant) {
  return kuVariantStates::find(transformVariants, variant);
}

void kuVariantSet::removeTransformVariant(const QString& variant) {
  kuVariantStates::remove(transformVariants, variant);
}

bool kuVariantSet::containsTransformVariant(const std::string& variant) {
  return findTransformVariant(QString::fromStdString(variant)) != nullptr;
}

#include "model/kuVariantSet.h"

// The states of the five kinds by the variants' names. The overloads that take a variant stand
// beside the kinds.

void kuVariantSet::addNodeVariant(const QString& variant, const QString& state) {
  nodeVariants.add(variant, state);
}

kuVariantState* kuVariantSet::findNodeVariant(const QString& variant) {
  return nodeVariants.find(variant);
}

void kuVariantSet::removeNodeVariant(const QString& variant) { nodeVariants.remove(variant); }

bool kuVariantSet::containsNodeVariant(std::string variant) {
  return findNodeVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addMaterialVariant(const QString& variant, const QString& state) {
  materialVariants.add(variant, state);
}

kuVariantState* kuVariantSet::findMaterialVariant(const QString& variant) {
  return materialVariants.find(variant);
}

void kuVariantSet::removeMaterialVariant(const QString& variant) {
  materialVariants.remove(variant);
}

bool kuVariantSet::containsMaterialVariant(std::string variant) {
  return findMaterialVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addLightVariant(const QString& variant, const QString& state) {
  lightVariants.add(variant, state);
}

kuVariantState* kuVariantSet::findLightVariant(const QString& variant) {
  return lightVariants.find(variant);
}

void kuVariantSet::removeLightVariant(const QString& variant) { lightVariants.remove(variant); }

bool kuVariantSet::containsLightVariant(std::string variant) {
  return findLightVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addOverlayVariant(const QString& variant, const QString& state) {
  overlayVariants.add(variant, state);
}

kuVariantState* kuVariantSet::findOverlayVariant(const QString& variant) {
  return overlayVariants.find(variant);
}

void kuVariantSet::removeOverlayVariant(const QString& variant) { overlayVariants.remove(variant); }

bool kuVariantSet::containsOverlayVariant(std::string variant) {
  return findOverlayVariant(QString::fromStdString(variant)) != nullptr;
}

void kuVariantSet::addTransformVariant(const QString& variant, const QString& state) {
  transformVariants.add(variant, state);
}

kuVariantState* kuVariantSet::findTransformVariant(const QString& variant) {
  return transformVariants.find(variant);
}

void kuVariantSet::removeTransformVariant(const QString& variant) {
  transformVariants.remove(variant);
}

bool kuVariantSet::containsTransformVariant(const std::string& variant) {
  return findTransformVariant(QString::fromStdString(variant)) != nullptr;
}

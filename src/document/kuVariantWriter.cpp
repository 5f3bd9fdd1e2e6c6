#include "document/kuVariantWriter.h"

#include "document/kuDomText.h"
#include "host/utils/QKuDomDocumentWriter.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

namespace {

void writeOption(QDomDocument& document, QDomElement& parent, const kuVariantOption& option) {
  QDomElement element = document.createElement(QStringLiteral("State"));
  element.setAttribute(QStringLiteral("name"), option.getName());
  kuAppendText(document, element, QStringLiteral("Hotkey"), option.getHotkey());
  parent.appendChild(element);
}

/** What all kinds have in common, which is everything but the tag. @p base name of the scene object
 * behind the variant. */
void writeVariant(QDomDocument& document, QDomElement& parent, const QString& tag,
                  const kuVariant& variant, const QString& base) {
  QDomElement element = document.createElement(tag);
  element.setAttribute(QStringLiteral("name"), variant.getName());
  element.setAttribute(QStringLiteral("base"), base);
  parent.appendChild(element);
  QDomElement defaultState = document.createElement(QStringLiteral("Default"));
  defaultState.setAttribute(QStringLiteral("ref"), variant.getDefault());
  element.appendChild(defaultState);
  for (const kuVariantOption& option : variant.getOptions())
    writeOption(document, element, option);
}

}  // namespace

QByteArray kuVariantWriter::write() {
  document = QDomDocument(QStringLiteral("variants"));
  document.appendChild(document.createProcessingInstruction(
      QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"utf-8\"")));
  QDomElement root = document.createElement(QStringLiteral("Variants"));
  document.appendChild(root);

  for (kuVariantGroup* group : kuVariants::getVariantGroups())
    writeVariantGroup(document, root, group);
  for (kuVariantSet* set : kuVariants::getVariantSets()) {
    if (!set->getGroup()) writeVariantSet(document, root, set);
  }
  // Overlays stand before transforms, where the announcement of changes has them otherwise.
  for (kuNodeVariant* variant : kuVariants::getNodeVariants())
    writeNodeVariant(document, root, variant);
  for (kuMaterialVariant* variant : kuVariants::getMaterialVariants())
    writeMaterialVariant(document, root, variant);
  for (kuLightVariant* variant : kuVariants::getLightVariants())
    writeLightVariant(document, root, variant);
  for (kuOverlayVariant* variant : kuVariants::getOverlayVariants())
    writeOverlayVariant(document, root, variant);
  for (kuTransformVariant* variant : kuVariants::getTransformVariants())
    writeTransformVariant(document, root, variant);

  return QKuDomDocumentWriter::toString(document).toUtf8();
}

void kuVariantWriter::writeVariantGroup(QDomDocument& document, QDomElement& parent,
                                        kuVariantGroup* group) {
  QDomElement element = document.createElement(QStringLiteral("VariantGroup"));
  element.setAttribute(QStringLiteral("name"), group->getName());
  element.setAttribute(QStringLiteral("comment"), group->getComment());
  element.setAttribute(QStringLiteral("showinvrmenu"), kuFlagText(group->getShowInVRMenu()));
  element.setAttribute(QStringLiteral("synccollaboration"),
                       kuFlagText(group->getSyncInCollaboration()));
  // The format's own way: readers look at "visible" alone, and take its absence for true.
  element.setAttribute(group->getVisible() ? QStringLiteral("true") : QStringLiteral("visible"),
                       kuFlagText(false));
  parent.appendChild(element);
  for (kuVariantSet* set : group->getVariantSets())
    writeVariantSet(document, element, set);
}

void kuVariantWriter::writeNodeVariant(QDomDocument& document, QDomElement& parent,
                                       kuNodeVariant* variant) {
  writeVariant(document, parent, QStringLiteral("NodeVariant"), *variant, variant->getNode());
}

void kuVariantWriter::writeMaterialVariant(QDomDocument& document, QDomElement& parent,
                                           kuMaterialVariant* variant) {
  writeVariant(document, parent, QStringLiteral("MaterialVariant"), *variant,
               variant->getMaterial());
}

void kuVariantWriter::writeLightVariant(QDomDocument& document, QDomElement& parent,
                                        kuLightVariant* variant) {
  writeVariant(document, parent, QStringLiteral("LightVariant"), *variant, variant->getNode());
}

// The newer name of the tag; the older one is read, and never written.
void kuVariantWriter::writeOverlayVariant(QDomDocument& document, QDomElement& parent,
                                          kuOverlayVariant* variant) {
  writeVariant(document, parent, QStringLiteral("SceneplateVariant"), *variant,
               variant->getOverlay());
}

void kuVariantWriter::writeTransformVariant(QDomDocument& document, QDomElement& parent,
                                            kuTransformVariant* variant) {
  writeVariant(document, parent, QStringLiteral("TransformVariant"), *variant, variant->getNode());
}

#pragma once

#include <QByteArray>
#include <QDomDocument>

#include "model/kuVariantsExport.h"

class kuLightVariant;
class kuMaterialVariant;
class kuNodeVariant;
class kuOverlayVariant;
class kuTransformVariant;
class kuVariant;
class kuVariantGroup;
class kuVariantSet;

/**
 * Writes everything that the manager holds as a variants document. Nothing may change the manager
 * meanwhile; nothing is sent.
 */
class KUVARIANTS_EXPORT kuVariantWriter {
 public:
  /** The document in UTF-8. */
  QByteArray write();

  // Each makes the element of an object, whole, and appends it to the parent. No object is null.

  /** With the group's sets inside. */
  static void writeVariantGroup(QDomDocument& document, QDomElement& parent, kuVariantGroup* group);
  static void writeVariantSet(QDomDocument& document, QDomElement& parent, kuVariantSet* set);
  static void writeNodeVariant(QDomDocument& document, QDomElement& parent, kuNodeVariant* variant);
  static void writeMaterialVariant(QDomDocument& document, QDomElement& parent,
                                   kuMaterialVariant* variant);
  static void writeLightVariant(QDomDocument& document, QDomElement& parent,
                                kuLightVariant* variant);
  static void writeOverlayVariant(QDomDocument& document, QDomElement& parent,
                                  kuOverlayVariant* variant);
  static void writeTransformVariant(QDomDocument& document, QDomElement& parent,
                                    kuTransformVariant* variant);

 private:
  QDomDocument document;
};

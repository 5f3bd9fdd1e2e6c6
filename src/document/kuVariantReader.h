#pragma once

#include <QDomDocument>
#include <QString>

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
 * Loads a variants document into the manager. What the manager holds stays, but for what the
 * document names as well: groups and sets of the same name are replaced, variants are filled anew.
 *
 * The objects that the readers answer belong to the manager. Removals are announced while they
 * happen; a receiver may change the manager, and what it removes is answered as null.
 */
class KUVARIANTS_EXPORT kuVariantReader {
 public:
  /**
   * Loads a zero-terminated UTF-8 text. A text that is not well-formed, declares entities, nests
   * more than 500 elements, is longer than 512 MB or in an encoding that is not a superset of ASCII
   * goes to the log with its place, and nothing else happens.
   */
  void read(char const* text);

  /** A node, material or light variant, and no other kind; null for anything else. */
  static kuVariant* readVariant(QDomElement& element);

  /** The new group with its sets; null without a name. */
  static kuVariantGroup* readVariantGroup(QDomElement& element);
  /**
   * The new set; null without a name.
   * @param replaceExisting false leaves a set of that name alone and gives the new one another.
   */
  static kuVariantSet* readVariantSet(QDomElement& element, bool replaceExisting);

  // The variant of the element's name, filled anew; null without a name.
  static kuNodeVariant* readNodeVariant(QDomElement& element);
  /** Makes the switch material too, if the scene has none of that name. */
  static kuMaterialVariant* readMaterialVariant(QDomElement& element);
  static kuLightVariant* readLightVariant(QDomElement& element);
  static kuOverlayVariant* readOverlayVariant(QDomElement& element);
  static kuTransformVariant* readTransformVariant(QDomElement& element);

 private:
  friend struct kuVariantsTestAccess;

  class SetContent;
  class OverlayFix;

  bool parse(char const* text);
  void fixOverlayVariants();

  static void readTopElement(QDomElement& element);
  static QString normalizeHotkeyText(const QString& text);
  static void readGroupAttributes(QDomElement& element, kuVariantGroup& group);
  static void readOptions(QDomElement& element, kuVariant& variant);
  template <class Variant>
  static Variant* readKind(QDomElement& element, Variant* (*find)(const QString&),
                           Variant* (*create)(const QString&, bool), QString Variant::*base);

  QDomDocument document;
};

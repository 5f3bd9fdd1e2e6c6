#pragma once

#include <QFile>
#include <QString>
#include <QTextStream>

#include "model/kuVariantsExport.h"

struct kuVariantFinding;

/**
 * Checks that what the manager holds agrees with itself and with the present scene, and reports it
 * line by line. Covered are the node and material states of sets, node variants and material
 * variants.
 *
 * A line is "Error" or "Info", type, name, context, state and message, with commas between and
 * nothing escaped: a comma in a name shifts the columns.
 */
class KUVARIANTS_EXPORT kuVariantVerifier {
 public:
  // The types of a line. Those of Korvo stand in no line of this class.
  static const QString VariantSetType;
  static const QString NodeVariantType;
  static const QString KorvoNodeVariantType;
  static const QString MaterialVariantType;
  static const QString KorvoMaterialVariantType;

  kuVariantVerifier();
  ~kuVariantVerifier();
  kuVariantVerifier(const kuVariantVerifier&) = delete;
  kuVariantVerifier& operator=(const kuVariantVerifier&) = delete;

  /**
   * Writes the report to a file, in the place of a former one, and to standard output. The answer
   * is whether the report was written to its end, be there errors in it or none.
   */
  bool verify(const QString& fileName);

  /** Selects every set without its side effects and then its defaults, and reports nothing. Always
   * true; the scene stands in the defaults of the last set. */
  bool verifyKorvo();

 private:
  void verifyVariantSets();
  void verifyNodeVariants();
  void verifyMaterialVariants();
  void write(const kuVariantFinding& finding);
  void writeError(const QString& type, const QString& name, const QString& context,
                  const QString& state, const char* message);
  void writeInfo(const QString& type, const QString& name, const QString& context,
                 const QString& state, const char* message);

  QFile file;
  QTextStream stream;
};

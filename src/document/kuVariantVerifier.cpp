#include "document/kuVariantVerifier.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "document/kuVariantFinding.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

const QString kuVariantVerifier::VariantSetType = "VariantSet";
const QString kuVariantVerifier::NodeVariantType = "NodeVariant";
const QString kuVariantVerifier::KorvoNodeVariantType = "KorvoNodeVariant";
const QString kuVariantVerifier::MaterialVariantType = "MaterialVariant";
const QString kuVariantVerifier::KorvoMaterialVariantType = "KorvoMaterialVariant";

namespace {

/** The four texts of a line, in UTF-8. */
struct Fields {
  QByteArray type, name, context, state;

  Fields(const QString& typeText, const QString& nameText, const QString& contextText,
         const QString& stateText)
      : type(typeText.toUtf8()),
        name(nameText.toUtf8()),
        context(contextText.toUtf8()),
        state(stateText.toUtf8()) {}

  /** Bytes go into the stream as they are, and its codec decides what becomes of them. */
  void writeTo(QTextStream& stream, const char* severity, const char* message) const {
    for (const char* field :
         {severity, type.constData(), name.constData(), context.constData(), state.constData()})
      stream << field << ",";
    stream << message << "\n";
  }
};

bool isListed(const kuVariantSet* set) {
  const std::vector<kuVariantSet*>& sets = kuVariants::getVariantSets();
  return std::find(sets.begin(), sets.end(), set) != sets.end();
}

}  // namespace

kuVariantVerifier::kuVariantVerifier() : stream(&file) {}

kuVariantVerifier::~kuVariantVerifier() = default;

bool kuVariantVerifier::verify(const QString& fileName) {
  file.setFileName(fileName);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  stream.resetStatus();
  bool finished = true;
  try {
    verifyVariantSets();
    verifyNodeVariants();
    verifyMaterialVariants();
  } catch (...) {
    finished = false;
  }
  file.close();
  return finished && stream.status() == QTextStream::Ok && file.error() == QFileDevice::NoError;
}

void kuVariantVerifier::verifyVariantSets() {
  kuCheckVariantSets([this](const kuVariantFinding& finding) { write(finding); });
}

void kuVariantVerifier::verifyNodeVariants() {
  kuCheckNodeVariants([this](const kuVariantFinding& finding) { write(finding); });
}

void kuVariantVerifier::verifyMaterialVariants() {
  kuCheckMaterialVariants([this](const kuVariantFinding& finding) { write(finding); });
}

void kuVariantVerifier::write(const kuVariantFinding& finding) {
  const auto writeLine = finding.severity == kuVariantFinding::Severity::Error
                             ? &kuVariantVerifier::writeError
                             : &kuVariantVerifier::writeInfo;
  (this->*writeLine)(finding.type, finding.name, finding.context, finding.state, finding.message);
}

void kuVariantVerifier::writeError(const QString& type, const QString& name, const QString& context,
                                   const QString& state, const char* message) {
  const Fields fields(type, name, context, state);
  std::printf("Error,%s,%s,%s,%s,%s\n", fields.type.constData(), fields.name.constData(),
              fields.context.constData(), fields.state.constData(), message);
  fields.writeTo(stream, "Error", message);
}

void kuVariantVerifier::writeInfo(const QString& type, const QString& name, const QString& context,
                                  const QString& state, const char* message) {
  const Fields fields(type, name, context, state);
  std::printf("Info,%s,%s,%s,%s,%s\n", fields.type.constData(), fields.name.constData(),
              fields.context.constData(), fields.state.constData(), message);
  fields.writeTo(stream, "Info", message);
}

bool kuVariantVerifier::verifyKorvo() {
  // Receivers of a selection may remove sets, those that are still to come as well as this one.
  for (kuVariantSet* set : std::vector<kuVariantSet*>(kuVariants::getVariantSets())) {
    if (isListed(set)) set->select(false, false, false);
    if (isListed(set)) set->selectDefault();
  }
  return true;
}

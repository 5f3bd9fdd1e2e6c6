#include "CaptureWarnings.h"

#include <map>

#include "Diagnostics.h"
#include "Page.h"
#include "Selection.h"
#include "host/kuSceneInterface.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

namespace {

/** The materials that the other set remembers for nodes which bear others now, and that the scene
 * does not have; with the number of the nodes. */
std::map<QString, std::size_t> missingMaterials(const kuVariantSet& captured,
                                                const kuVariantSet& other) {
  std::map<QString, std::size_t> missing;
  const auto& present = captured.getMaterialSnapshots();
  for (const auto& snapshot : other.getMaterialSnapshots()) {
    const auto now = present.find(snapshot.first);
    if (now == present.end() || now->second == snapshot.second) continue;
    const QByteArray name = snapshot.second.toUtf8();
    if (!kuMaterials::findMaterial(name.constData()).isValid()) ++missing[snapshot.second];
  }
  return missing;
}

void warnOfMissingMaterials(const kuVariantSet& captured) {
  for (const kuVariantSet* other : kuVariants::getVariantSets()) {
    if (other == &captured) continue;
    for (const auto& one : missingMaterials(captured, *other)) {
      printDiagnostic("warning: the set \"" + other->getName().toStdString() +
                      "\" remembers the material \"" + one.first.toStdString() + "\" for " +
                      counted(one.second, "node") +
                      ", and the scene has none of that name: no switch material was made there");
    }
  }
}

}  // namespace

void warnOfCapture(const kuVariantSet& captured) {
  warnOfMissingMaterials(captured);
  if (captured.getName() == temporarySetName()) {
    printDiagnostic("warning: while a set is named \"" + captured.getName().toStdString() +
                    "\", materials that sets remember are not put back when they are selected");
  }
}

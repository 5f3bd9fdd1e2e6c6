#include "CaptureWarnings.h"

#include <QRegularExpression>
#include <algorithm>
#include <map>
#include <string>

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

QStringList stateNames(const osg::MaterialPtr& material) {
  std::vector<std::string> names;
  material->getStateNames(names);
  QStringList texts;
  for (const std::string& name : names)
    texts += QString::fromStdString(name);
  return texts;
}

kuMaterialPtr materialOf(const QString& name) {
  return kuMaterials::findMaterial(name.toUtf8().constData());
}

/** Whether the state can be none of those of the switch material that bears the variant's name. */
bool isForeign(const kuVariantState& state) {
  const auto material = osg::SwitchMaterialPtr::dcast(materialOf(state.getVariant()).getMaterial());
  return material && !state.getState().isEmpty() && !state.getState().startsWith('!') &&
         !stateNames(material).contains(state.getState());
}

std::string switchText(const kuVariantState& state) {
  return "the switch material \"" + state.getVariant().toStdString() + '"';
}

/** Where a set remembers a plain material for a node that bears a switch, the capture lets the new
 * set have the switch's own name for its state. */
void warnOfForeignState(const QString& set, const kuVariantState& state) {
  printDiagnostic("warning: the set \"" + set.toStdString() + "\" has \"" +
                  state.getState().toStdString() + "\" for its state of " + switchText(state) +
                  ", which has none of that name: it may not bring its own look back");
}

void warnOfMissingState(const QString& set, const kuVariantState& state) {
  printDiagnostic("warning: the set \"" + set.toStdString() + "\" shows the material \"" +
                  state.getState().toStdString() + "\" by " + switchText(state) +
                  ", and the scene has none of that name");
}

/** Whether the capture let the set have that state. */
bool isNew(const QString& set, const kuVariantState& state,
           const std::vector<SwitchChange>& changes) {
  return std::any_of(changes.begin(), changes.end(), [&](const SwitchChange& change) {
    return change.name == state.getVariant() &&
           std::count(change.states.begin(), change.states.end(),
                      std::make_pair(set, state.getState())) != 0;
  });
}

void warnOfStates(const kuVariantSet& captured, const std::vector<SwitchChange>& changes) {
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    for (const kuVariantState& state : set->getMaterialVariants()) {
      if (!isForeign(state)) continue;
      if (!materialOf(state.getState()).isValid()) {
        warnOfMissingState(set->getName(), state);
      } else if (set == &captured || isNew(set->getName(), state, changes)) {
        warnOfForeignState(set->getName(), state);
      }
    }
  }
}

/** The lines that a capture writes hold names between quotes as they are. */
bool isSound(const QString& line) {
  static const QRegularExpression sound(
      R"re(^(setIgnoreMaterialGroup\("[^"\\\r]*",(true|false)\)|)re"
      R"re(findNodePath\("[^"\\\r]*"\)\.setActive\(false\)|)re"
      R"re(activateRenderLayerState\("[^"\\\r]*"\))$)re");
  return sound.match(line).hasMatch();
}

void warnOfScript(const kuVariantSet& captured) {
  const QStringList lines = captured.getScript().split('\n');
  if (std::all_of(lines.begin(), lines.end(), isSound)) return;
  printDiagnostic("warning: the script of the set \"" + captured.getName().toStdString() +
                  "\" does not work: a name in it has a quotation mark, a back-slash or a line "
                  "break");
}

}  // namespace

void warnOfCapture(const kuVariantSet& captured, const std::vector<SwitchChange>& changes) {
  warnOfMissingMaterials(captured);
  warnOfStates(captured, changes);
  warnOfScript(captured);
  if (captured.getName() == temporarySetName()) {
    printDiagnostic("warning: while a set is named \"" + captured.getName().toStdString() +
                    "\", materials that sets remember are not put back when they are selected");
  }
}

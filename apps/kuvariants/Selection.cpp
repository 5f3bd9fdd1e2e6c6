#include "Selection.h"

#include "Diagnostics.h"
#include "Failure.h"
#include "SceneChanges.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "model/kuVariantSet.h"

namespace {

template <class List>
QStringList namesOf(const List& list) {
  QStringList names;
  for (const auto* one : list)
    names += one->getName();
  return names;
}

QStringList optionsOf(const kuVariant& variant) {
  QStringList names;
  for (const kuVariantOption& option : variant.getOptions())
    names += option.getName();
  return names;
}

void checkState(const StateRequest& request) {
  const kuVariant& variant = existingVariant(*request.kind, request.variant);
  if (hasState(*request.kind, variant, request.state)) return;
  failUnknown("unknown state",
              std::string(request.kind->name) + ':' + request.variant.toStdString() + '=' +
                  request.state.toStdString(),
              request.state, optionsOf(variant));
}

void checkNames(const SelectOptions& options) {
  for (const QString& set : options.sets)
    existingSet(set);
  for (const StateRequest& request : options.states)
    checkState(request);
}

// A script or a receiver of messages may have removed what was there when the names were checked,
// so each is looked up anew when its turn comes.

void selectSet(const QString& name, const SelectOptions& options) {
  kuVariantSet& set = existingSet(name);
  if (options.useDefaults) {
    set.selectDefault();
  } else {
    activateSet(name, options.skipViewpoint, options.restoreMaterials);
  }
}

}  // namespace

void failUnknown(const std::string& what, const std::string& where, const QString& name,
                 const QStringList& existing) {
  std::string reason = "there is none of that name";
  const QStringList near = nearestNames(name, existing);
  if (!near.empty()) reason += "; did you mean \"" + near.join("\" or \"").toStdString() + "\"?";
  throw Failure{ExitCode::NameUnknown, what, where, reason};
}

kuVariantSet& existingSet(const QString& name) {
  if (kuVariantSet* set = kuVariants::findVariantSet(name)) return *set;
  failUnknown("unknown set", name.toStdString(), name, namesOf(kuVariants::getVariantSets()));
}

QString temporarySetName() { return QStringLiteral("Temp"); }

void warnWhereNotRestored(const std::vector<QString>& sets) {
  if (!kuVariants::findVariantSet(temporarySetName())) return;
  QStringList affected;
  for (const QString& set : sets) {
    if (!existingSet(set).getMaterialSnapshots().empty()) affected += '"' + set + '"';
  }
  if (affected.isEmpty()) return;
  printDiagnostic("warning: materials are not put back to the nodes for " +
                  affected.join(", ").toStdString() + ": the document has a set named \"" +
                  temporarySetName().toStdString() +
                  "\", and the name is needed for that; give that set another");
}

void activateSet(const QString& name, bool skipViewpoint, bool restoreMaterials) {
  const kuVariantSet& set = existingSet(name);
  const bool remembers = !set.getMaterialSnapshots().empty();
  if (restoreMaterials && remembers && !kuVariants::findVariantSet(temporarySetName())) {
    // Not by the set's name: a command cannot carry every name, and it leaves no viewpoint out.
    kuVariants::activateCapturedVariantSet("");
  }
  kuVariants::selectVariantSet(name.toUtf8().constData(), skipViewpoint);
}

kuVariant& existingVariant(const Kind& kind, const QString& name) {
  if (kuVariant* variant = kind.find(name)) return *variant;
  failUnknown("unknown variant", std::string(kind.name) + ':' + name.toStdString(), name,
              namesOf(kind.variants()));
}

void selectOne(const StateRequest& request) {
  checkState(request);
  existingVariant(*request.kind, request.variant).select(request.state);
}

SelectionReport selectAll(const SelectOptions& options) {
  checkNames(options);
  if (options.restoreMaterials && !options.useDefaults) warnWhereNotRestored(options.sets);
  const NodeMaterials materials;
  SceneChanges changes;
  for (const QString& set : options.sets)
    selectSet(set, options);
  for (const StateRequest& request : options.states)
    existingVariant(*request.kind, request.variant).select(request.state);
  SelectionReport report = changes.take();
  report.sets = QStringList(options.sets.begin(), options.sets.end());
  report.states = options.states;
  report.materials = materials.changes();
  return report;
}

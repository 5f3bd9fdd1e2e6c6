#include "scripting/ScriptVariants.h"

#include "Kinds.h"
#include "Selection.h"
#include "model/kuVariant.h"
#include "scripting/ScriptKinds.h"

namespace bp = boost::python;

namespace {

QString textOf(const std::string& utf8) { return QString::fromStdString(utf8); }

kuVariant& existing(const std::string& kind, const std::string& variant) {
  return existingVariant(*existingKind(kind).kind, textOf(variant));
}

}  // namespace

namespace ScriptVariants {

bp::list variants(const std::string& kind) {
  bp::list names;
  for (const kuVariant* variant : existingKind(kind).kind->variants())
    names.append(variant->getName().toStdString());
  return names;
}

bp::list options(const std::string& kind, const std::string& variant) {
  bp::list names;
  for (const kuVariantOption& option : existing(kind, variant).getOptions())
    names.append(option.getName().toStdString());
  return names;
}

std::string state(const std::string& kind, const std::string& variant) {
  return existing(kind, variant).getCurrent().toStdString();
}

void selectState(const std::string& kind, const std::string& variant, const std::string& state) {
  selectOne({existingKind(kind).kind, textOf(variant), textOf(state)});
}

}  // namespace ScriptVariants

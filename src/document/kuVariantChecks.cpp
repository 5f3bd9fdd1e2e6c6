#include <QSet>
#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "document/kuVariantFinding.h"
#include "document/kuVariantVerifier.h"
#include "host/kernel/kuScenegraph.h"
#include "host/osg/Switch.h"
#include "host/utils/kuMaterials.h"
#include "manager/kuVariants.h"
#include "model/kuKeyword.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeStates.h"
#include "scene/kuNodeVariant.h"

// Which keywords pass differs from place to place, and on purpose: between a default and an option,
// and between a switch, another node and a material.

namespace {

using Keywords = std::initializer_list<kuKeyword>;

constexpr Keywords switchDefaults = {kuKeyword::All, kuKeyword::None, kuKeyword::Enable,
                                     kuKeyword::Disable};
constexpr Keywords switchOptions = {
    kuKeyword::All,  kuKeyword::None,     kuKeyword::Enable,   kuKeyword::Disable,
    kuKeyword::Next, kuKeyword::NextLoop, kuKeyword::Previous, kuKeyword::PreviousLoop};
constexpr Keywords nodeDefaults = {kuKeyword::Enable, kuKeyword::Disable};
constexpr Keywords nodeOptions = {kuKeyword::Enable, kuKeyword::Disable, kuKeyword::Toggle};
constexpr Keywords materialOptions = {kuKeyword::Next, kuKeyword::NextLoop, kuKeyword::Previous,
                                      kuKeyword::PreviousLoop};

bool isOneOf(Keywords keywords, const QString& text) {
  const kuKeyword keyword = kuKeywordOf(text);
  return std::find(keywords.begin(), keywords.end(), keyword) != keywords.end();
}

/** The findings about one set or one variant. */
class Findings {
 public:
  Findings(const kuFindingReceiver& receive, QString type, QString name, QString context = {})
      : _receive(receive),
        _type(std::move(type)),
        _name(std::move(name)),
        _context(std::move(context)) {}

  void error(const char* message, const QString& state = {}) { error(message, _context, state); }
  void error(const char* message, const QString& context, const QString& state) {
    _valid = false;
    _receive({kuVariantFinding::Severity::Error, _type, _name, context, state, message});
  }

  /** Ends with the line "valid" where there was no error. */
  void end() {
    if (_valid)
      _receive({kuVariantFinding::Severity::Info, _type, _name, _context, QString(), "valid"});
  }

 private:
  const kuFindingReceiver& _receive;
  QString _type, _name, _context;
  bool _valid = true;
};

/** The states of a set for variants of one kind. */
template <class Variant>
void checkStates(const std::list<kuVariantState>& states, Variant* (*find)(const QString&),
                 const char* noVariant, const char* noState, Findings& findings) {
  for (const kuVariantState& entry : states) {
    Variant* variant = find(entry.getVariant());
    if (!variant) {
      findings.error(noVariant, entry.getVariant(), QString());
    } else if (!variant->find(entry.getState())) {
      findings.error(noState, entry.getVariant(), entry.getState());
    }
  }
}

template <class IsState>
void checkOptions(const kuVariant& variant, const char* emptyState, const char* noState,
                  IsState isState, Findings& findings) {
  for (const kuVariantOption& option : variant.getOptions()) {
    if (option.getName().isEmpty()) {
      findings.error(emptyState);
    } else if (!isState(option.getName())) {
      findings.error(noState, option.getName());
    }
  }
}

QSet<QString> childNames(const osg::Node& node) {
  QSet<QString> names;
  const unsigned count = node.getNChildren();
  for (unsigned i = 0; i < count; ++i)
    names.insert(kuNodeStates::childName(node, i));
  return names;
}

/** Whether the default state passes, which an empty one does; tells why otherwise. */
bool checkSwitchDefault(kuNodeVariant& variant, const QSet<QString>& children, Findings& findings) {
  const QString& state = variant.getDefault();
  if (state.isEmpty()) return true;
  if (!variant.find(state)) {
    findings.error("default node state not found in node variant", state);
    return false;
  }
  if (children.contains(state) || isOneOf(switchDefaults, state)) return true;
  findings.error("default node state not found in switch node", state);
  return false;
}

void checkSwitch(kuNodeVariant& variant, const osg::Node& node, Findings& findings) {
  const QSet<QString> children = childNames(node);
  if (!checkSwitchDefault(variant, children, findings)) return;
  const auto isState = [&](const QString& state) {
    return children.contains(state) || isOneOf(switchOptions, state);
  };
  checkOptions(variant, "empty state in node variant", "node state not found in switch node",
               isState, findings);
  findings.end();
}

void checkOtherNode(const kuNodeVariant& variant, Findings& findings) {
  if (!variant.getDefault().isEmpty() && !isOneOf(nodeDefaults, variant.getDefault())) {
    findings.error("node is not a switch-node and has illegal default value");
    return;
  }
  // The text speaks of a switch here too.
  checkOptions(
      variant, "empty state in node variant", "node state not found in switch node",
      [](const QString& state) { return isOneOf(nodeOptions, state); }, findings);
  findings.end();
}

void checkNodeVariant(kuNodeVariant& variant, Findings& findings) {
  const kuNodePtr found = kuScenegraph::findNode(variant.getNode().toUtf8().constData());
  if (!found.isValid()) {
    findings.error("switch-node not found");
    return;
  }
  const osg::NodePtr& node = found;
  if (osg::SwitchPtr::dcast(node->getCore())) {
    checkSwitch(variant, *node, findings);
  } else {
    checkOtherNode(variant, findings);
  }
}

QSet<QString> stateNames(const osg::Material& material) {
  std::vector<std::string> names;
  material.getStateNames(names);
  QSet<QString> texts;
  for (const std::string& name : names)
    texts.insert(QString::fromStdString(name));
  return texts;
}

/** As for a switch node, but no keyword passes for a default. */
bool checkMaterialDefault(kuMaterialVariant& variant, const QSet<QString>& states,
                          Findings& findings) {
  const QString& state = variant.getDefault();
  if (state.isEmpty()) return true;
  if (!variant.find(state)) {
    findings.error("default material state not found in material variant", state);
    return false;
  }
  if (states.contains(state)) return true;
  findings.error("default material state not found in switch material", state);
  return false;
}

void checkMaterialVariant(kuMaterialVariant& variant, Findings& findings) {
  const kuMaterialPtr found = kuMaterials::findMaterial(variant.getMaterial().toUtf8().constData());
  if (!found.isValid()) {
    findings.error("switch-material not found");
    return;
  }
  if (!found.getMaterial()->isMultiState()) {
    findings.error("material is not a switch, substance or xrite-material");
    return;
  }
  const QSet<QString> states = stateNames(*found.getMaterial());
  if (!checkMaterialDefault(variant, states, findings)) return;
  const auto isState = [&](const QString& state) {
    return states.contains(state) || isOneOf(materialOptions, state);
  };
  checkOptions(variant, "empty state in material variant",
               "material state not found in switch material", isState, findings);
  findings.end();
}

}  // namespace

void kuCheckVariantSets(const kuFindingReceiver& receive) {
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    Findings findings(receive, kuVariantVerifier::VariantSetType, set->getName());
    checkStates(set->getNodeVariants(), kuVariants::findNodeVariant, "node variant not found",
                "requested state not found in node variant", findings);
    checkStates(set->getMaterialVariants(), kuVariants::findMaterialVariant,
                "material variant not found", "requested state not found in material variant",
                findings);
    findings.end();
  }
}

void kuCheckNodeVariants(const kuFindingReceiver& receive) {
  for (kuNodeVariant* variant : kuVariants::getNodeVariants()) {
    Findings findings(receive, kuVariantVerifier::NodeVariantType, variant->getName(),
                      variant->getNode());
    checkNodeVariant(*variant, findings);
  }
}

void kuCheckMaterialVariants(const kuFindingReceiver& receive) {
  for (kuMaterialVariant* variant : kuVariants::getMaterialVariants()) {
    Findings findings(receive, kuVariantVerifier::MaterialVariantType, variant->getName(),
                      variant->getMaterial());
    checkMaterialVariant(*variant, findings);
  }
}

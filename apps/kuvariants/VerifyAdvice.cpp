#include "VerifyAdvice.h"

#include <QByteArray>
#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "Kinds.h"
#include "SceneState.h"
#include "document/kuVariantFinding.h"
#include "document/kuVariantVerifier.h"
#include "host/kernel/kuScenegraph.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "model/kuVariant.h"

namespace {

using Finding = kuVariantFinding;

constexpr const char* illegalDefault = "node is not a switch-node and has illegal default value";

QString noWord(const Finding&) { return {}; }
QString context(const Finding& finding) { return finding.context; }
QStringList noWords(const Finding&) { return {}; }

QString kindOf(const Finding& finding) {
  const VerifyAdvice* advice = adviceFor(finding);
  return advice ? QString::fromLatin1(advice->kind) : QString();
}

kuVariant* variantOf(const Finding& finding) {
  const Kind* kind = findKind(kindOf(finding));
  const bool isSet = finding.type == kuVariantVerifier::VariantSetType;
  return kind ? kind->find(isSet ? finding.context : finding.name) : nullptr;
}

QStringList variants(const Finding& finding) {
  QStringList names;
  for (const kuVariant* variant : findKind(kindOf(finding))->variants())
    names += variant->getName();
  return names;
}

QStringList options(const Finding& finding) {
  QStringList names;
  if (const kuVariant* variant = variantOf(finding)) {
    for (const kuVariantOption& option : variant->getOptions())
      names += option.getName();
  }
  return names;
}

void appendNames(QStringList& names, const osg::NodePtr& node) {
  names += QString::fromUtf8(kuNodeUtils::getName(node));
  for (unsigned i = 0; i < node->getNChildren(); ++i)
    appendNames(names, node->getChild(i));
}

QStringList nodes(const Finding&) {
  QStringList names;
  appendNames(names, kuScenegraph::getRoot());
  return names;
}

QStringList children(const Finding& finding) {
  QStringList names;
  const kuNodePtr found = kuScenegraph::findNode(finding.context.toUtf8().constData());
  if (!found.isValid()) return names;
  const osg::NodePtr& node = found;
  for (unsigned i = 0; i < node->getNChildren(); ++i)
    names += QString::fromUtf8(kuNodeUtils::getName(node->getChild(i)));
  return names;
}

QStringList onAndOff(const Finding&) { return {"!Enable", "!Disable"}; }

QStringList materialStates(const Finding& finding) {
  QStringList names;
  const kuMaterialPtr found = kuMaterials::findMaterial(finding.context.toUtf8().constData());
  if (!found.isValid()) return names;
  for (const std::string& name : stateNames(*found.getMaterial()))
    names += QString::fromStdString(name);
  return names;
}

/** "Transform 7" where there are fewer: the node takes the number and shows nothing of it. */
bool leadsNowhere(const QString& node, const QString& state) {
  const QString prefix = QStringLiteral("Transform ");
  if (!state.startsWith(prefix)) return false;
  const kuNodePtr found = kuScenegraph::findNode(node.toUtf8().constData());
  return state.mid(prefix.size()).toUInt() >=
         static_cast<uint>(kuNodeUtils::getTransformVariantCount(found));
}

constexpr const char* missingVariant =
    "Correct the names in the document or remove the entries; a selection passes over them.";
constexpr const char* missingOption =
    "Correct the states in the document, or add them to the variants;\n"
    "what the scene lacks too, \"kuvariants optimize\" removes from the sets.";
constexpr const char* missingBase =
    "Correct the names in the scene or in the document, or remove the variants;\n"
    "\"kuvariants optimize\" removes their states from the sets.";
constexpr const char* unlistedDefault =
    "Correct the default in the document, or add the state to the variant.";
constexpr const char* missingState =
    "Correct the names in the scene or in the document;\n"
    "\"kuvariants create\" makes variants that fit the scene.";
constexpr const char* emptyState = "Name the state in the document, or remove it.";

const std::array<VerifyAdvice, 15> advices = {{
    {"node variant not found", "node", "Sets name node variants that do not exist", missingVariant,
     context, variants},
    {"requested state not found in node variant", "node",
     "Sets name states that their node variants do not have", missingOption, stateInQuestion,
     options},
    {"material variant not found", "material", "Sets name material variants that do not exist",
     missingVariant, context, variants},
    {"requested state not found in material variant", "material",
     "Sets name states that their material variants do not have", missingOption, stateInQuestion,
     options},
    {"switch-node not found", "node", "Node variants stand for nodes that the scene does not have",
     missingBase, context, nodes},
    {"default node state not found in node variant", "node",
     "Node variants have a default that is none of their states", unlistedDefault, stateInQuestion,
     options},
    {"default node state not found in switch node", "node",
     "Node variants have a default that their switch in the scene does not have", missingState,
     stateInQuestion, children},
    {illegalDefault, "node",
     "Node variants have a default other than !Enable and !Disable, and their node is no switch",
     "Correct the default in the document, or make the node a switch again.", stateInQuestion,
     onAndOff},
    {"empty state in node variant", "node", "Node variants have a state without a name", emptyState,
     noWord, noWords},
    {"node state not found in switch node", "node",
     "Node variants have states that their node in the scene does not have", missingState,
     stateInQuestion, children},
    {"material is not a switch, substance or xrite-material", "material",
     "Material variants stand for materials without states",
     "Make the materials switches in the scene, or remove the variants from the document.", noWord,
     noWords},
    {"default material state not found in material variant", "material",
     "Material variants have a default that is none of their states", unlistedDefault,
     stateInQuestion, options},
    {"default material state not found in switch material", "material",
     "Material variants have a default that their material in the scene does not have",
     missingState, stateInQuestion, materialStates},
    {"empty state in material variant", "material", "Material variants have a state without a name",
     emptyState, noWord, noWords},
    {"material state not found in switch material", "material",
     "Material variants have states that their material in the scene does not have", missingState,
     stateInQuestion, materialStates},
}};

}  // namespace

const VerifyAdvice* adviceFor(const kuVariantFinding& finding) {
  const auto found = std::find_if(advices.begin(), advices.end(), [&](const VerifyAdvice& advice) {
    return std::strcmp(advice.message, finding.message) == 0;
  });
  return found == advices.end() ? nullptr : &*found;
}

QString stateInQuestion(const kuVariantFinding& finding) {
  // This message alone keeps the state to itself.
  if (std::strcmp(finding.message, illegalDefault) != 0) return finding.state;
  const kuVariant* variant = variantOf(finding);
  return variant ? variant->getDefault() : QString();
}

bool isObeyed(const kuVariantFinding& finding) {
  const Kind* kind = findKind(kindOf(finding));
  const kuVariant* variant = variantOf(finding);
  const QString state = stateInQuestion(finding);
  if (!variant || state.isEmpty()) return false;
  const QString base = kind->baseOf(*variant);
  return kind->obeys(base, state) && !leadsNowhere(base, state);
}

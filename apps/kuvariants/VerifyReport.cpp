#include "VerifyReport.h"

#include <algorithm>

#include "JsonWriter.h"
#include "Text.h"
#include "VerifyAdvice.h"
#include "document/kuVariantVerifier.h"
#include "manager/kuVariants.h"

namespace {

using Severity = kuVariantFinding::Severity;

bool isError(const kuVariantFinding& finding) { return finding.severity == Severity::Error; }

void writeFinding(JsonWriter& json, const kuVariantFinding& finding) {
  json.object(
      [&] {
        json.entry("severity", isError(finding) ? "Error" : "Info");
        json.entry("type", finding.type);
        json.entry("name", finding.name);
        json.entry("context", finding.context);
        json.entry("state", finding.state);
        json.entry("message", finding.message);
      },
      JsonWriter::Layout::OneLine);
}

std::string shown(const QString& name) { return name.isEmpty() ? "(unnamed)" : escaped(name); }

/** Where the error is: "Summer: Roof = Open", "Roof, on Car Roof: Open". */
std::string placeOf(const kuVariantFinding& finding) {
  const bool isSet = finding.type == kuVariantVerifier::VariantSetType;
  std::string place = shown(finding.name);
  if (isSet) place += ": " + shown(finding.context);
  if (!isSet && finding.context != finding.name) place += ", on " + shown(finding.context);
  const QString state = stateInQuestion(finding);
  if (!state.isEmpty()) place += (isSet ? " = " : ": ") + shown(state);
  return place;
}

std::string guessFor(const kuVariantFinding& finding) {
  const VerifyAdvice* advice = adviceFor(finding);
  const QString word = advice ? advice->word(finding) : QString();
  if (word.isEmpty()) return {};
  const QStringList nearest = nearestNames(word, advice->candidates(finding));
  return nearest.isEmpty() ? std::string() : " (did you mean " + escaped(nearest.front()) + "?)";
}

/** Errors of one kind, which are told together. */
struct Group {
  std::string sentence;
  std::string hint;
  /** Whether the names in it could be misspelt. */
  bool guess;
  VerifyFindings findings;
};

Group emptyGroupFor(const kuVariantFinding& finding) {
  if (isObeyed(finding)) {
    return {"These states count as errors, but the scene obeys them",
            "Nothing needs to be done.",
            false,
            {}};
  }
  const VerifyAdvice* advice = adviceFor(finding);
  if (!advice) return {finding.message, "", false, {}};
  return {advice->sentence, advice->hint, true, {}};
}

void addTo(std::vector<Group>& groups, const kuVariantFinding& finding) {
  const Group own = emptyGroupFor(finding);
  auto group = std::find_if(groups.begin(), groups.end(),
                            [&](const Group& one) { return one.sentence == own.sentence; });
  if (group == groups.end()) group = groups.insert(groups.end(), own);
  group->findings.push_back(finding);
}

/** In the order in which their first errors stand in the report; what asks for nothing is last. */
std::vector<Group> groupsOf(const VerifyFindings& findings) {
  std::vector<Group> groups;
  for (const bool obeyed : {false, true}) {
    for (const kuVariantFinding& finding : findings) {
      if (isError(finding) && isObeyed(finding) == obeyed) addTo(groups, finding);
    }
  }
  return groups;
}

/** The hint below the names, each of its lines set in. */
std::string hintText(const Group& group) {
  if (group.hint.empty()) return {};
  const QString hint = QString::fromStdString(group.hint).replace("\n", "\n     ");
  return "  -> " + hint.toStdString() + '\n';
}

std::string groupText(const Group& group) {
  constexpr std::size_t most = 5;
  const std::size_t count = std::min(group.findings.size(), most);
  std::string text = group.sentence + ":\n";
  for (std::size_t i = 0; i < count; ++i) {
    const kuVariantFinding& finding = group.findings[i];
    text += "  " + placeOf(finding) + (group.guess ? guessFor(finding) : "") + '\n';
  }
  if (group.findings.size() > count) {
    text += "  and " + std::to_string(group.findings.size() - count) + " more\n";
  }
  return text + hintText(group) + '\n';
}

std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string countLine(std::size_t errors) {
  const std::string found = errors == 0 ? "no errors" : counted(errors, "error");
  return found + "; checked: " + counted(kuVariants::getVariantSets().size(), "set") + ", " +
         counted(kuVariants::getNodeVariants().size(), "node variant") + ", " +
         counted(kuVariants::getMaterialVariants().size(), "material variant") + '\n';
}

}  // namespace

VerifyFindings findAll() {
  VerifyFindings findings;
  const auto keep = [&](const kuVariantFinding& finding) { findings.push_back(finding); };
  kuCheckVariantSets(keep);
  kuCheckNodeVariants(keep);
  kuCheckMaterialVariants(keep);
  return findings;
}

std::size_t countErrors(const VerifyFindings& findings) {
  return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), isError));
}

std::string verifyJson(const VerifyFindings& findings) {
  const std::size_t errors = countErrors(findings);
  JsonWriter json;
  json.object([&] {
    json.key("findings");
    json.array(findings, [&](const kuVariantFinding& finding) { writeFinding(json, finding); });
    json.key("counts");
    json.object(
        [&] {
          json.entry("errors", errors);
          json.entry("infos", findings.size() - errors);
        },
        JsonWriter::Layout::OneLine);
  });
  return json.text() + '\n';
}

std::string verifySummary(const VerifyFindings& findings) {
  const std::vector<Group> groups = groupsOf(findings);
  // Between the report and the groups, where both go to a terminal.
  std::string text = groups.empty() ? "" : "\n";
  for (const Group& group : groups)
    text += groupText(group);
  return text + countLine(countErrors(findings));
}

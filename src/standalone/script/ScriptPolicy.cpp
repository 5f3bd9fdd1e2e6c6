#include "standalone/script/ScriptPolicy.h"

#include "host/kernel/kuController.h"
#include "host/kernel/kuLog.h"
#include "standalone/script/LogText.h"

namespace kuStandalone {

namespace {

constexpr std::size_t kMaxKept = 1000;
constexpr std::size_t kMaxNested = 64;

struct PolicyState {
  bool allowed = false;
  std::uint64_t refusalCount = 0;
  std::vector<ScriptRefusal> refusals;
  /** The selections under way, the innermost last. */
  std::vector<std::string> sets;
};

PolicyState& state() {
  static PolicyState present;
  return present;
}

/**
 * Every selection sends its set's name at the start and an empty one at its end, so a stack
 * follows selections that run inside one another. A sender that never ends what it began must not
 * make it grow: the oldest goes.
 */
void noteSelection(kuMessage& message) {
  std::string name;
  if (!message.get("variantSetName", name)) return;
  std::vector<std::string>& sets = state().sets;
  if (!name.empty()) {
    if (sets.size() == kMaxNested) sets.erase(sets.begin());
    sets.push_back(name);
  } else if (!sets.empty()) {
    sets.pop_back();
  }
}

/** From the moment the library is there: selections may begin before the first script. */
const bool listening = (kuController::addCB("variantsSetSelected", noteSelection), true);

}  // namespace

void ScriptPolicy::allow(bool allowed) { state().allowed = allowed; }

bool ScriptPolicy::allowed() { return state().allowed; }

std::string ScriptPolicy::presentSet() {
  return state().sets.empty() ? std::string() : state().sets.back();
}

void ScriptPolicy::refuse(const char* text, const std::string& reason) {
  const ScriptRefusal refusal{presentSet(), oneLine(reason, kLogReasonBytes),
                              oneLine(text, kLogStartBytes)};
  ++state().refusalCount;
  if (state().refusals.size() < kMaxKept) state().refusals.push_back(refusal);
  kuLog::warning("%s not run, scripts are not allowed: %s: %s", presentScript().c_str(),
                 refusal.reason.c_str(), refusal.start.c_str());
}

std::uint64_t ScriptPolicy::refusalCount() { return state().refusalCount; }

const std::vector<ScriptRefusal>& ScriptPolicy::refusals() { return state().refusals; }

void ScriptPolicy::clearRefusals() {
  state().refusalCount = 0;
  state().refusals.clear();
}

}  // namespace kuStandalone

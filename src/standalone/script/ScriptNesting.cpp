#include "standalone/script/ScriptNesting.h"

#include "standalone/script/LogText.h"
#include "standalone/script/ScriptPolicy.h"

namespace kuStandalone {

namespace {

constexpr int kMaxDepth = 16;
/** More than any document needs whose sets select others. */
constexpr int kMaxInside = 10000;

struct {
  int depth = 0;
  /** The texts that ran inside the outermost one. */
  int inside = 0;
  bool isStopped = false;
} present;

void stop(const char* reason) {
  present.isStopped = true;
  logScriptFailure(reason);
}

bool enter() {
  if (++present.depth == 1) return true;
  if (present.isStopped) return false;
  if (present.depth > kMaxDepth) stop("scripts run inside one another too deep");
  // A script that is allowed may go on as long as it likes: Python has loops too.
  else if (++present.inside > kMaxInside && !ScriptPolicy::allowed())
    stop("scripts run inside one another too often");
  return !present.isStopped;
}

}  // namespace

ScriptNesting::ScriptNesting() : _mayRun(enter()) {}

ScriptNesting::~ScriptNesting() {
  if (--present.depth > 0) return;
  present.inside = 0;
  present.isStopped = false;
}

}  // namespace kuStandalone

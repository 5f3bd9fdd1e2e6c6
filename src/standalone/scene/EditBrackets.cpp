#include "standalone/scene/EditBrackets.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "host/kernel/kuLog.h"
#include "host/osg/EditCP.h"

namespace kuStandalone {
namespace {

struct Bracket {
  const osg::FieldContainer* object;
  osg::FieldMask mask;
};

std::vector<Bracket>& brackets() {
  static std::vector<Bracket> open;
  return open;
}

EditBrackets::Watcher& watcher() {
  static EditBrackets::Watcher present;
  return present;
}

std::uint64_t violationCount = 0;
std::uint64_t closedBrackets = 0;

void report(const osg::FieldContainer& object, const char* what) {
  ++violationCount;
  kuLog::error("%s of a %s outside a fitting edit bracket", what, object.getType().getName());
}

}  // namespace

void EditBrackets::noteChange(const osg::FieldContainer& object, osg::FieldMask field,
                              const char* what) {
  const bool covered =
      std::any_of(brackets().rbegin(), brackets().rend(), [&](const Bracket& bracket) {
        return bracket.object == &object && (bracket.mask & field) == field;
      });
  if (!covered) report(object, what);
}

void EditBrackets::watch(Watcher heard) { watcher() = std::move(heard); }

std::uint64_t EditBrackets::violations() { return violationCount; }

std::size_t EditBrackets::open() { return brackets().size(); }

std::uint64_t EditBrackets::revision() { return closedBrackets; }

}  // namespace kuStandalone

namespace osg {

void beginEditCP(const FieldContainerPtr& object, FieldMask mask, unsigned) {
  if (object) kuStandalone::brackets().push_back({object.get(), mask});
}

void endEditCP(const FieldContainerPtr& object, FieldMask mask, unsigned) {
  using namespace kuStandalone;
  if (!object) return;
  const auto found =
      std::find_if(brackets().rbegin(), brackets().rend(), [&](const Bracket& bracket) {
        return bracket.object == object.get() && bracket.mask == mask;
      });
  if (found == brackets().rend()) return report(*object, "endEditCP");
  brackets().erase(std::next(found).base());
  ++closedBrackets;
  if (watcher()) watcher()(*object, mask);
}

}  // namespace osg

// What a reload gives, written down from the format and not from the code that does it.

#include <algorithm>
#include <set>

#include "DocumentModel.h"

namespace {

using Model = DocumentModel;

template <class Entries>
auto findNamed(Entries& entries, const QString& name) {
  return std::find_if(entries.begin(), entries.end(),
                      [&](const auto& entry) { return entry.name == name; });
}

Model::Hotkey normalized(const Model::Hotkey& hotkey) {
  return {hotkey.normalized, hotkey.normalized, hotkey.key, hotkey.modifier};
}

Model::Set reloaded(Model::Set set) {
  set.hotkey = normalized(set.hotkey);
  for (auto& vector : set.clipping.vectors) {
    for (float& value : vector)
      value = roundedToSixDigits(value);
  }
  return set;
}

/** Without actions, and of equal names the first alone. */
std::vector<Model::Option> reloaded(const std::vector<Model::Option>& options) {
  std::vector<Model::Option> result;
  for (const Model::Option& option : options) {
    if (findNamed(result, option.name) == result.end())
      result.push_back({option.name, normalized(option.hotkey), false});
  }
  return result;
}

class Reload {
 public:
  explicit Reload(const Model& written) : _written(written) {}

  Model run(const Model::Names& sceneplates);

 private:
  void takeGroup(const Model::Group& group);
  bool takeSet(const Model::Set& set);
  static void takeVariants(const Model::Variants& from, bool namelessToo, Model::Variants& to);

  void fixOverlays(Model::Set& set, const Model::Names& sceneplates);
  bool hasManyOptions(const QString& overlay) const;
  void ensureOverlay(const QString& name);

  const Model& _written;
  Model _held;
};

Model Reload::run(const Model::Names& sceneplates) {
  for (const Model::Group& group : _written.groups)
    takeGroup(group);
  for (const Model::Set& set : _written.sets) {
    if (!_written.groupOf(set.id)) takeSet(set);
  }
  takeVariants(_written.nodes, true, _held.nodes);
  takeVariants(_written.materials, true, _held.materials);
  takeVariants(_written.lights, true, _held.lights);
  takeVariants(_written.overlays, false, _held.overlays);
  takeVariants(_written.transforms, true, _held.transforms);
  for (Model::Set& set : _held.sets)
    fixOverlays(set, sceneplates);
  return _held;
}

/** A nameless group is refused with all its sets; of equal names the last stays, behind the others,
 * and the sets of the former are ungrouped. */
void Reload::takeGroup(const Model::Group& group) {
  if (group.name.isEmpty()) return;
  const auto former = findNamed(_held.groups, group.name);
  if (former != _held.groups.end()) _held.groups.erase(former);
  Model::Group taken = group;
  taken.sets.clear();
  _held.groups.push_back(taken);
  for (const int id : group.sets) {
    if (takeSet(_written.set(id))) _held.groups.back().sets.push_back(id);
  }
}

/** Of equal names the last stays, behind the others; the former leaves its group. */
bool Reload::takeSet(const Model::Set& set) {
  if (set.name.isEmpty()) return false;
  const auto former = findNamed(_held.sets, set.name);
  if (former != _held.sets.end()) {
    for (Model::Group& group : _held.groups)
      group.sets.erase(std::remove(group.sets.begin(), group.sets.end(), former->id),
                       group.sets.end());
    _held.sets.erase(former);
  }
  _held.sets.push_back(reloaded(set));
  return true;
}

/** Of equal names there is one, in the place of the first and with the content of the last. */
void Reload::takeVariants(const Model::Variants& from, bool namelessToo, Model::Variants& to) {
  for (const Model::Variant& variant : from) {
    if (variant.name.isEmpty() && !namelessToo) continue;
    Model::Variant taken = variant;
    taken.options = reloaded(variant.options);
    const auto former = variant.name.isEmpty() ? to.end() : findNamed(to, variant.name);
    if (former == to.end()) {
      to.push_back(taken);
    } else {
      *former = taken;
    }
  }
}

bool Reload::hasManyOptions(const QString& overlay) const {
  const auto found = findNamed(_held.overlays, overlay);
  return found != _held.overlays.end() && found->options.size() > 3;
}

void Reload::ensureOverlay(const QString& name) {
  if (name.isEmpty() || findNamed(_held.overlays, name) != _held.overlays.end()) return;
  _held.overlays.push_back({name, QString(), QString(), {}});
}

void Reload::fixOverlays(Model::Set& set, const Model::Names& sceneplates) {
  bool hasStates = set.overlays.empty();
  std::set<QString> seen;
  for (Model::State& entry : set.overlays) {
    seen.insert(entry.variant);
    if (!entry.state.isEmpty() || hasManyOptions(entry.variant)) {
      hasStates = true;
    } else {
      ensureOverlay(entry.variant);
      entry.state = "!Enable";
    }
  }
  if (hasStates) return;
  for (const QString& name : sceneplates) {
    if (!seen.insert(name).second) continue;
    ensureOverlay(name);
    set.overlays.push_back({name, "!Disable"});
  }
}

}  // namespace

const DocumentModel::Set& DocumentModel::set(int id) const {
  return *std::find_if(sets.begin(), sets.end(), [&](const Set& set) { return set.id == id; });
}

const DocumentModel::Group* DocumentModel::groupOf(int id) const {
  for (const Group& group : groups) {
    if (std::find(group.sets.begin(), group.sets.end(), id) != group.sets.end()) return &group;
  }
  return nullptr;
}

DocumentModel DocumentModel::afterReload(const Names& sceneplates) const {
  return Reload(*this).run(sceneplates);
}

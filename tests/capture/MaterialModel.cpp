#include "capture/MaterialModel.h"

#include <algorithm>

void MaterialModel::capture(const std::string& setName) {
  sets.push_back({setName, {}, {}});
  _handledPaths.clear();
  _handled.clear();
  std::map<std::string, std::string> snapshots;
  for (std::size_t node = 0; node < nodes.size(); ++node) {
    const int material = nodes[node].material;
    takeState(material);
    for (const int entry : std::vector<int>(entries(material)))
      takeState(entry);
    compare(int(node), material);
    snapshot(int(node), snapshots);
  }
  sets.back().snapshots = snapshots;
}

void MaterialModel::snapshot(int node, std::map<std::string, std::string>& snapshots) {
  const Node& of = nodes[std::size_t(node)];
  if (!snapshots.emplace(of.path, name(of.material)).second) return;
  const int first = nodes[std::size_t(firstOf(of.path))].material;
  for (Node& other : nodes) {
    if (other.path != of.path) continue;
    if (other.material != first) ++met["levelled"];
    other.material = first;
  }
}

void MaterialModel::compare(int node, int material) {
  Comparison at{node, material};
  for (std::size_t index = 0; index + 1 < sets.size(); ++index)
    compareWith(sets[index], at);
}

void MaterialModel::compareWith(Set& other, Comparison& at) {
  Node& node = nodes[std::size_t(at.node)];
  const auto found = other.snapshots.find(node.path);
  if (found == other.snapshots.end()) return void(++met["no snapshot"]);
  const std::string otherName = found->second;
  if (otherName == name(at.material)) return void(++met["same name"]);
  const int otherMaterial = find(otherName);
  if (otherMaterial < 0) return void(++met["absent"]);
  if (_handled.count(otherMaterial)) {
    ++met["handled"];
    node.material = otherMaterial;
    return;
  }
  if (isSwitch(otherMaterial) && at.settled < 0) {
    if (isSharedOtherwise(other, otherName, at)) at.needsDuplicate = true;
    compareWithSwitch(other, otherMaterial, at);
    return;
  }
  settle(at);
  const bool stays = has(at.settled, otherMaterial) || holds(otherMaterial, at.settled, false);
  if (stays) ++met["has it"];
  if (!stays && !at.split) add(at.settled, otherMaterial);
  const std::string variant = variantOf(at.settled);
  addState(sets.back(), variant, name(at.material));
  ++met[at.needsDuplicate ? "state copied" : "state named"];
  addState(other, variant, at.needsDuplicate ? stateOf(other, otherName) : name(otherMaterial));
  other.snapshots[node.path] = name(at.settled);
  _handled.insert(at.settled);
}

void MaterialModel::compareWithSwitch(Set& other, int otherSwitch, Comparison& at) {
  if (isSwitch(at.material) && equal(otherSwitch, at.material)) {
    ++met["equal switches"];
  } else if (at.needsDuplicate) {
    split(other, otherSwitch, at);
  } else if (isSwitch(at.material)) {
    ++met["different switches"];
  } else {
    grow(otherSwitch, at);
  }
}

bool MaterialModel::isSharedOtherwise(const Set& other, const std::string& otherName,
                                      const Comparison& at) {
  for (const auto& [path, material] : other.snapshots) {
    if (material != otherName || path == nodes[std::size_t(at.node)].path) continue;
    if (_handledPaths.count(path)) continue;
    const int sharing = firstOf(path);
    if (sharing >= 0 && nodes[std::size_t(sharing)].material != at.material) return true;
    _handledPaths.insert(path);
  }
  return false;
}

void MaterialModel::split(Set& other, int otherSwitch, Comparison& at) {
  ++met["split"];
  std::string& snapshot = other.snapshots[nodes[std::size_t(at.node)].path];
  at.settled = newSwitch(entries(otherSwitch));
  if (!has(at.settled, at.material)) entries(at.settled).push_back(at.material);
  at.split = true;
  show(at.settled, at.material);
  nodes[std::size_t(at.node)].material = at.settled;
  const std::string variant = variantOf(at.settled);
  addState(sets.back(), variant, name(at.material));
  addState(other, variant, stateOf(other, snapshot));
  snapshot = name(at.settled);
  _handled.insert(at.settled);
}

void MaterialModel::grow(int otherSwitch, Comparison& at) {
  ++met["grown"];
  if (!has(otherSwitch, at.material)) entries(otherSwitch).push_back(at.material);
  show(otherSwitch, at.material);
  nodes[std::size_t(at.node)].material = otherSwitch;
  addState(sets.back(), variantOf(otherSwitch), name(at.material));
  at.settled = otherSwitch;
  _handled.insert(otherSwitch);
}

void MaterialModel::settle(Comparison& at) {
  if (at.settled >= 0) return;
  if (isSwitch(at.material)) {
    ++met["present switch"];
    at.settled = at.material;
  } else {
    ++met["new switch"];
    at.settled = newSwitch({at.material});
    nodes[std::size_t(at.node)].material = at.settled;
  }
}

/** A material in a defined state of its own gives the set that state. */
void MaterialModel::takeState(int material) {
  if (!isSwitch(material)) return;
  const Material& of = materials[std::size_t(material)];
  if (of.choice >= of.entries.size()) return;
  addState(sets.back(), variantOf(material), name(of.entries[of.choice]));
}

std::string MaterialModel::variantOf(int material) {
  const Material& of = materials[std::size_t(material)];
  const std::size_t present = of.choice < of.entries.size() ? of.choice : 0;
  _defaults.emplace(of.name, of.entries.empty() ? std::string() : name(of.entries[present]));
  return of.name;
}

void MaterialModel::addState(Set& set, const std::string& variant, const std::string& state) {
  const std::string stored = state.empty() ? _defaults.at(variant) : state;
  for (auto& entry : set.states) {
    if (entry.first != variant) continue;
    entry.second = stored;
    return;
  }
  set.states.emplace_back(variant, stored);
}

std::string MaterialModel::stateOf(const Set& set, const std::string& variant) {
  for (const auto& [entry, state] : set.states) {
    if (entry == variant) return state;
  }
  return {};
}

int MaterialModel::newSwitch(std::vector<int> content) {
  ++_newSwitches;
  const std::string number = _newSwitches == 1 ? "" : std::to_string(_newSwitches);
  materials.push_back({"Switch" + number, true, std::move(content), 0});
  return int(materials.size()) - 1;
}

/** The host lets no material into itself, however deep. */
void MaterialModel::add(int target, int material) {
  if (material == target || holds(material, target, true)) return;
  entries(target).push_back(material);
}

void MaterialModel::show(int target, int material) {
  const std::vector<int>& in = entries(target);
  materials[std::size_t(target)].choice =
      unsigned(std::find(in.begin(), in.end(), material) - in.begin());
}

int MaterialModel::find(const std::string& materialName) const {
  for (std::size_t index = 0; index < materials.size(); ++index) {
    if (materials[index].name == materialName) return int(index);
  }
  return -1;
}

int MaterialModel::firstOf(const std::string& path) const {
  for (std::size_t index = 0; index < nodes.size(); ++index) {
    if (nodes[index].path == path) return int(index);
  }
  return -1;
}

bool MaterialModel::equal(int a, int b) { return !entries(a).empty() && entries(a) == entries(b); }

bool MaterialModel::has(int target, int material) {
  for (const int entry : entries(target)) {
    if (isSwitch(material) ? isSwitch(entry) && equal(entry, material) : entry == material) {
      return true;
    }
  }
  return false;
}

bool MaterialModel::holds(int material, int searched, bool deep) {
  for (const int entry : entries(material)) {
    if (entry == searched || (deep && holds(entry, searched, true))) return true;
  }
  return false;
}

MaterialModel::Texts MaterialModel::setTexts() const {
  Texts texts;
  for (const Set& set : sets) {
    std::string text = set.name + ':';
    for (const auto& [path, material] : set.snapshots)
      text += " " + path + '=' + material;
    if (!set.states.empty()) text += " |";
    for (const auto& [variant, state] : set.states)
      text += " " + variant + '=' + state;
    texts.push_back(text);
  }
  return texts;
}

MaterialModel::Texts MaterialModel::switchTexts() const {
  Texts texts;
  for (const Material& material : materials) {
    if (!material.isSwitch) continue;
    std::string text = material.name + ':';
    for (std::size_t index = 0; index < material.entries.size(); ++index)
      text += (index == material.choice ? " *" : " ") + name(material.entries[index]);
    texts.push_back(text);
  }
  return texts;
}

MaterialModel::Texts MaterialModel::nodeTexts() const {
  Texts texts;
  for (const Node& node : nodes)
    texts.push_back(node.path.substr(node.path.rfind('/') + 1) + ": " + name(node.material));
  return texts;
}

#include "DocumentModelGenerator.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "OddTexts.h"

using Model = DocumentModel;

DocumentModelGenerator::DocumentModelGenerator(unsigned seed) : _random(seed) {
  _names = {"Plate A", "Roof"};
  for (int i = 0; i < 12; ++i)
    _names.push_back(text());
}

/** One odd text, or two or three run together. */
QString DocumentModelGenerator::text() {
  QString made = oneOf(oddTexts());
  for (int more = upTo(5); more > 3; --more)
    made += oneOf(oddTexts());
  return made;
}

Model::Names DocumentModelGenerator::names() {
  Model::Names made;
  for (const QString& candidate : several(5, [this] { return coin() ? name() : text(); })) {
    if (std::find(made.begin(), made.end(), candidate) == made.end()) made.push_back(candidate);
  }
  return made;
}

Model::States DocumentModelGenerator::states() {
  Model::States made;
  for (const QString& variant : names())
    made.push_back({variant, coin() ? QString() : text()});
  return made;
}

Model::Map DocumentModelGenerator::pairs() {
  Model::Map made;
  for (int left = upTo(4); left > 0; --left) {
    const QString key = text();
    made[key] = text();
  }
  return made;
}

/** None, every byte value once, or any bytes up to a few kilobytes. */
QByteArray DocumentModelGenerator::preview() {
  if (coin()) return QByteArray();
  QByteArray made(coin() ? 256 : 1 + upTo(coin() ? 80 : 6000), '\0');
  for (int i = 0; i < made.size(); ++i)
    made[i] = char(made.size() == 256 ? i : upTo(255));
  return made;
}

float DocumentModelGenerator::number() {
  if (coin()) return oneOf(oddFloats());
  if (coin()) return float(upTo(2000000) - 1000000) / 997.0F;
  const auto bits = std::uint32_t(_random());
  float made;
  std::memcpy(&made, &bits, sizeof made);
  return std::isnan(made) ? 0.5F : made;
}

int DocumentModelGenerator::wholeNumber() { return coin() ? upTo(4) : int(_random()); }

Model::Clipping DocumentModelGenerator::clipping() {
  Model::Clipping made;
  if (upTo(4) == 0) return made;
  made.state = wholeNumber();
  for (auto& vector : made.vectors) {
    for (float& value : vector)
      value = number();
  }
  made.invert = coin();
  made.hideScene = coin();
  made.showPlane = coin();
  made.showGrid = coin();
  made.showContour = coin();
  made.contourWidth = wholeNumber();
  return made;
}

Model::Option DocumentModelGenerator::option() {
  Model::Option made;
  made.name = coin() ? name() : text();
  made.hotkey = oneOf(oddHotkeys());
  made.action = coin();
  return made;
}

Model::Variant DocumentModelGenerator::variant() {
  Model::Variant made;
  made.name = coin() ? name() : text();
  made.base = text();
  made.defaultState = text();
  made.options = several(6, [this] { return option(); });
  return made;
}

void DocumentModelGenerator::fillLists(Model::Set& set) {
  set.nodes = states();
  set.materials = states();
  set.lights = states();
  set.overlays = states();
  if (coin()) {
    for (Model::State& entry : set.overlays)
      entry.state.clear();
  }
  set.transforms = states();
  set.viewpoints = names();
  set.animations = names();
  set.geometries = names();
  set.targets = names();
  set.values = pairs();
  set.snapshots = pairs();
}

Model::Set DocumentModelGenerator::set() {
  Model::Set made;
  made.id = ++_lastId;
  made.name = upTo(3) == 0 ? name() : text();
  made.comment = text();
  made.hotkey = oneOf(oddHotkeys());
  made.showInVRMenu = coin();
  made.sync = coin();
  made.sequential = coin();
  made.script = text();
  made.defaultViewpoint = text();
  made.preview = preview();
  for (bool& flag : made.incl)
    flag = coin();
  fillLists(made);
  made.clipping = clipping();
  return made;
}

/** Each set is in one of the groups or in none. */
void DocumentModelGenerator::addGroups(Model& model) {
  model.groups =
      several(4, [this] { return Model::Group{text(), text(), coin(), coin(), coin(), {}}; });
  for (const Model::Set& set : model.sets) {
    const auto place = std::size_t(upTo(int(model.groups.size())));
    if (place < model.groups.size()) model.groups[place].sets.push_back(set.id);
  }
  for (Model::Group& group : model.groups)
    std::shuffle(group.sets.begin(), group.sets.end(), _random);
}

Model DocumentModelGenerator::make() {
  Model made;
  made.sets = several(6, [this] { return set(); });
  addGroups(made);
  const auto variants = [this] { return several(5, [this] { return variant(); }); };
  made.nodes = variants();
  made.materials = variants();
  made.lights = variants();
  made.overlays = variants();
  made.transforms = variants();
  return made;
}

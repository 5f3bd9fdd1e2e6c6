#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "DocumentModel.h"

namespace {

using Model = DocumentModel;

std::ostream& operator<<(std::ostream& out, const QString& text) {
  return out << text.toUtf8().toStdString();
}

template <class Value>
void field(std::ostream& out, const char* name, const Value& value, const Value& usual) {
  if (value != usual) out << ' ' << name << '=' << value;
}

void text(std::ostream& out, const char* name, const QString& value) {
  field(out, name, value, QString());
}

void dumpHotkey(std::ostream& out, const Model::Hotkey& hotkey, int usualKey) {
  text(out, "hotkey", hotkey.text);
  field(out, "key", hotkey.key, usualKey);
  field(out, "modifier", hotkey.modifier, 0);
}

void dump(std::ostream& out, const Model& model, const Model::Group& group) {
  out << "group " << group.name;
  text(out, "comment", group.comment);
  field(out, "visible", group.visible, true);
  field(out, "vr", group.showInVRMenu, true);
  field(out, "sync", group.sync, true);
  out << '\n';
  for (const int id : group.sets)
    out << "  set " << model.set(id).name << '\n';
}

void dump(std::ostream& out, const char* kind, const Model::States& states) {
  for (const Model::State& entry : states)
    out << "  " << kind << ' ' << entry.variant << '=' << entry.state << '\n';
}

void dump(std::ostream& out, const char* kind, const Model::Names& names) {
  for (const QString& name : names)
    out << "  " << kind << ' ' << name << '\n';
}

void dump(std::ostream& out, const char* kind, const Model::Map& map) {
  for (const auto& [key, value] : map)
    out << "  " << kind << ' ' << key << '=' << value << '\n';
}

template <class Value>
void clippingLine(std::ostream& out, const char* name, const Value& value, const Value& usual) {
  if (value != usual) out << "  getClipping" << name << ' ' << value << '\n';
}

void dumpVector(std::ostream& out, const char* name, const Model::Clipping& clipping, int index) {
  static const Model::Clipping usual;
  const auto& v = clipping.vectors[index];
  if (v != usual.vectors[index])
    out << "  getClipping" << name << ' ' << v[0] << ' ' << v[1] << ' ' << v[2] << '\n';
}

void dump(std::ostream& out, const Model::Clipping& clipping) {
  clippingLine(out, "State", clipping.state, 0);
  dumpVector(out, "PlanePosition", clipping, 0);
  dumpVector(out, "PlaneNormal", clipping, 1);
  clippingLine(out, "Invert", clipping.invert, false);
  clippingLine(out, "HideScene", clipping.hideScene, false);
  clippingLine(out, "ShowPlane", clipping.showPlane, true);
  dumpVector(out, "PlaneColor", clipping, 2);
  clippingLine(out, "ShowGrid", clipping.showGrid, true);
  dumpVector(out, "GridColor", clipping, 3);
  clippingLine(out, "ShowContour", clipping.showContour, true);
  dumpVector(out, "ContourColor", clipping, 4);
  clippingLine(out, "ContourWidth", clipping.contourWidth, 1);
}

void dumpFields(std::ostream& out, const Model& model, const Model::Set& set) {
  dumpHotkey(out, set.hotkey, -1);
  text(out, "comment", set.comment);
  field(out, "vr", set.showInVRMenu, true);
  field(out, "sync", set.sync, true);
  text(out, "script", set.script);
  text(out, "viewpoint", set.defaultViewpoint);
  field(out, "sequential", set.sequential, false);
  std::string incl;
  for (const bool flag : set.incl)
    incl += flag ? '1' : '0';
  field(out, "incl", incl, std::string("000000"));
  field(out, "preview", set.preview.toStdString(), std::string());
  if (const Model::Group* group = model.groupOf(set.id)) text(out, "group", group->name);
}

void dump(std::ostream& out, const Model& model, const Model::Set& set) {
  out << "set " << set.name;
  dumpFields(out, model, set);
  out << '\n';
  dump(out, "node", set.nodes);
  dump(out, "material", set.materials);
  dump(out, "light", set.lights);
  dump(out, "overlay", set.overlays);
  dump(out, "transform", set.transforms);
  dump(out, "viewpoint", set.viewpoints);
  dump(out, "animation", set.animations);
  dump(out, "geometry", set.geometries);
  dump(out, "target", set.targets);
  dump(out, "value", set.values);
  dump(out, "snapshot", set.snapshots);
  dump(out, set.clipping);
}

void dump(std::ostream& out, const char* kind, const Model::Variants& variants) {
  for (const Model::Variant& variant : variants) {
    out << kind << ' ' << variant.name << " base=" << variant.base;
    text(out, "default", variant.defaultState);
    out << '\n';
    for (const Model::Option& option : variant.options) {
      out << "  option " << option.name;
      dumpHotkey(out, option.hotkey, 0);
      field(out, "action", option.action, false);
      out << '\n';
    }
  }
}

}  // namespace

std::string DocumentModel::dump() const {
  std::ostringstream out;
  for (const Group& group : groups)
    ::dump(out, *this, group);
  for (const Set& set : sets)
    ::dump(out, *this, set);
  ::dump(out, "nodeVariant", nodes);
  ::dump(out, "materialVariant", materials);
  ::dump(out, "lightVariant", lights);
  ::dump(out, "overlayVariant", overlays);
  ::dump(out, "transformVariant", transforms);
  return out.str();
}

std::string DocumentModel::clippingDump() const {
  std::string lines;
  for (const Set& set : sets) {
    for (const auto& vector : set.clipping.vectors) {
      for (const float value : vector)
        lines += exactText(value) + ' ';
    }
    lines += '\n';
  }
  return lines;
}

std::string exactText(float value) {
  if (std::isnan(value)) return "nan";
  char digits[64];
  std::snprintf(digits, sizeof digits, "%a", double(value));
  return digits;
}

float roundedToSixDigits(float value) {
  if (!std::isfinite(value)) return value;
  char digits[256];
  std::snprintf(digits, sizeof digits, "%.150e", std::fabs(double(value)));  // 1.234..., exactly
  int six = digits[0] - '0';
  for (int i = 2; i < 7; ++i)
    six = 10 * six + (digits[i] - '0');
  if (digits[7] >= '5') ++six;
  const int exponent = std::atoi(std::strchr(digits, 'e') + 1) - 5;
  const std::string rounded = std::to_string(six) + 'e' + std::to_string(exponent);
  const double result = std::strtod(rounded.c_str(), nullptr);
  return float(value < 0 ? -result : result);
}

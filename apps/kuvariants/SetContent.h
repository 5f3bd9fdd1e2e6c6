#pragma once

#include <QString>
#include <array>
#include <utility>
#include <vector>

class JsonWriter;
class kuVariantSet;

/** What a set names of the scene, or a part of it. */
struct SetContent {
  /** For each kind, in the order of kinds(), variants and their states. */
  std::array<std::vector<std::pair<QString, QString>>, 5> states;
  std::vector<QString> viewpoints;
  /** Empty for none. */
  QString defaultViewpoint;
  std::vector<QString> animations;
  std::vector<QString> geometries;
};

SetContent contentOf(const kuVariantSet& set);

/** The member "states": for each kind pairs of variant and state. */
void writeStates(JsonWriter& json, const SetContent& content);

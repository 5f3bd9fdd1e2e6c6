#pragma once

#include <QString>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>

/**
 * The names of the scene's lights and of its animations. Each list is taken when it is first asked
 * for, and then serves any number of sets: as long as the scene does not change.
 */
class kuSceneNames {
 public:
  bool hasLight(const QString& name);
  /** Whether an animation block or a clip bears the name. */
  bool hasAnimation(const QString& name);

 private:
  std::optional<std::unordered_set<std::string>> _lights;
  std::optional<std::set<std::string>> _animations;
};

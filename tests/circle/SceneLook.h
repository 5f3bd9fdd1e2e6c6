#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "standalone/scene/Scene.h"

/** One thing about a scene that can be seen: "Car/Roof choice: Open". */
struct SeenThing {
  /** The path of the node, or "scene". */
  std::string path;
  std::string what;
  std::string value;

  bool operator==(const SeenThing& other) const {
    return path == other.path && what == other.what && value == other.value;
  }
};

inline std::ostream& operator<<(std::ostream& out, const SeenThing& thing) {
  return out << thing.path << ' ' << thing.what << ": " << thing.value;
}

/** How a scene looks, in the order of its tree, the sceneplates behind it and the camera last. */
using SceneLook = std::vector<SeenThing>;

/**
 * What the user sees, not how the scene comes to it: of a material the name of the one that shows
 * in the end, through any switches.
 */
SceneLook lookAt(const kuStandalone::Scene& scene);

/**
 * What is different between two looks at scenes of the same tree, each as
 * "Car/Roof choice: Open -> Closed" with the paths of the first.
 */
std::vector<std::string> differences(const SceneLook& before, const SceneLook& after);

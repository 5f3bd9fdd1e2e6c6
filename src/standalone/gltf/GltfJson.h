#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <stdexcept>
#include <string>
#include <utility>

namespace kuStandalone {

/** Why a file is no scene; it ends the reading and becomes the result's error. */
struct GltfRefusal : std::runtime_error {
  /** @param where the member, as "nodes[12].children[3]"; empty for the file as a whole. */
  GltfRefusal(const std::string& where, const std::string& why)
      : std::runtime_error(where.empty() ? why : where + ": " + why) {}
};

/** "nodes[12]", and with a member "nodes[12].mesh". */
inline std::string gltfPlace(const char* list, int index, const std::string& member = {}) {
  const std::string entry = std::string(list) + "[" + std::to_string(index) + "]";
  return member.empty() ? entry : entry + "." + member;
}

/** A file's JSON text and its binary chunk. */
struct GltfContent {
  QJsonObject root;
  QByteArray binary;
};

/** Takes a .gltf or .glb apart. Throws GltfRefusal. */
GltfContent parseGltf(const QByteArray& bytes);

/** Checks types and indices of all that this host reads. Throws GltfRefusal. */
void checkGltf(const QJsonObject& root, std::size_t maximalDepth);

}  // namespace kuStandalone

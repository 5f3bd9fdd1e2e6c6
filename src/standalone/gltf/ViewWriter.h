#pragma once

#include <map>
#include <string>

#include "standalone/gltf/NodeLayout.h"

namespace kuStandalone {

/** Writes cameras, viewpoints, the active viewpoint and the blocks of animations. */
class ViewWriter {
 public:
  ViewWriter(const Scene& scene, GltfDraft& draft, const NodeLayout& layout);

  void write();

 private:
  void writeCamera(const Camera& camera);
  int indexOf(const Camera& camera);
  void writeViewpoints();
  QJsonValue viewpointOf(const Viewpoint& viewpoint, const QJsonArray& former) const;
  void writeBlocks();

  const Scene& _scene;
  GltfDraft& _draft;
  const NodeLayout& _layout;
  /** The camera that a name leads to when the file is read. */
  std::map<std::string, const Camera*> _firstOfName;
};

}  // namespace kuStandalone

#pragma once

#include <cstdint>

#include "host/kuHostExport.h"

namespace QRPC {

/** A node by its identifier, and the transform state that it is to take. */
class KUHOST_EXPORT NodeTrafoId {
 public:
  NodeTrafoId() = default;
  NodeTrafoId(std::uint32_t nodeId, std::int32_t transformIndex)
      : _nodeId(nodeId), _transformIndex(transformIndex) {}
  NodeTrafoId(const NodeTrafoId&) = default;
  NodeTrafoId& operator=(const NodeTrafoId&) = default;
  virtual ~NodeTrafoId();

  std::uint32_t getNodeId() const { return _nodeId; }
  std::int32_t getTransformIndex() const { return _transformIndex; }

 private:
  std::uint32_t _nodeId = 0;
  std::int32_t _transformIndex = 0;
};

}  // namespace QRPC

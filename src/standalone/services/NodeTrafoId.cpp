#include "host/services/NodeTrafoId.h"

namespace QRPC {

NodeTrafoId::~NodeTrafoId() = default;

}  // namespace QRPC

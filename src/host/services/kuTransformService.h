#pragma once

#include <QList>

#include "host/services/NodeTrafoId.h"
#include "host/services/kuBaseService.h"

/** Switches transforms to their named states. A host must always have it registered. */
class KUHOST_EXPORT kuTransformService : public kuBaseService {
 public:
  /**
   * Switches each listed node to the listed state. Unknown nodes and indices without a state are
   * passed over. The two further arguments are always 0.
   */
  virtual void switchTransformVariants(const QList<QRPC::NodeTrafoId>& states, int, int) = 0;
};

#pragma once

#include "host/kuHostExport.h"

/** Base of the host's services. */
class KUHOST_EXPORT kuBaseService {
 public:
  virtual ~kuBaseService();
};

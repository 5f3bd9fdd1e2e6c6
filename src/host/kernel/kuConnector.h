#pragma once

#include "host/kuHostExport.h"

/** The host's tie between script commands and partners. */
class KUHOST_EXPORT kuConnector {
 public:
  static kuConnector* the();

  /** Whether script commands of a selection also go to the partners; handed to kuScript. */
  bool syncVariants() const;

  kuConnector(const kuConnector&) = delete;
  kuConnector& operator=(const kuConnector&) = delete;

 private:
  kuConnector() = default;
};

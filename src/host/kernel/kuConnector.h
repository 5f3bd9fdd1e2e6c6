#pragma once

#include "host/kuHostExport.h"

/** The host's tie between script commands and partners. */
class KUHOST_EXPORT kuConnector {
 public:
  static kuConnector* the();

  /** Whether script commands of a selection also go to the partners: the user's own setting, handed
   * to kuScript. It has no influence on the commands of kuSession. */
  bool syncVariants() const;

  kuConnector(const kuConnector&) = delete;
  kuConnector& operator=(const kuConnector&) = delete;

 private:
  kuConnector() = default;
};

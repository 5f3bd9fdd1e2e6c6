#pragma once

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The part of a material editor that names new materials: while it lives it answers
 * "MaterialGetUniqueName". The message's "name" is the name wished for; "newname" becomes that
 * name, or the first of it with a number behind it that no material of the scene bears.
 */
class KUHOST_EXPORT MaterialNames {
 public:
  MaterialNames();
  ~MaterialNames();
  MaterialNames(const MaterialNames&) = delete;
  MaterialNames& operator=(const MaterialNames&) = delete;
};

}  // namespace kuStandalone

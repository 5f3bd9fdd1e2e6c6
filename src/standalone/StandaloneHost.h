#pragma once

#include <memory>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The running host: while it lives, the three services are registered and animations that are
 * started move the scene. There is one per process, made after the QApplication and gone before
 * it. At its end the present scene is emptied, and what was built to render it is let go.
 */
class KUHOST_EXPORT StandaloneHost {
 public:
  StandaloneHost();
  ~StandaloneHost();
  StandaloneHost(const StandaloneHost&) = delete;
  StandaloneHost& operator=(const StandaloneHost&) = delete;

 private:
  struct Parts;
  std::unique_ptr<Parts> _parts;
};

}  // namespace kuStandalone

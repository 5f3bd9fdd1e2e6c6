#include "standalone/kernel/HostState.h"

namespace kuStandalone {

HostState& HostState::the() {
  static HostState state;
  return state;
}

}  // namespace kuStandalone

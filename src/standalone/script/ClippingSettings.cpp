#include "standalone/script/ClippingSettings.h"

namespace kuStandalone {

ClippingSettings& ClippingSettings::the() {
  static ClippingSettings settings;
  return settings;
}

}  // namespace kuStandalone

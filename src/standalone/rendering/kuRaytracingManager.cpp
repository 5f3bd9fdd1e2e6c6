#include "host/rendering/kuRaytracingManager.h"

#include "standalone/kernel/HostState.h"

using kuStandalone::HostState;

namespace {

/** The setting as the host's state holds it. */
class RaytracingUtils final : public kuRaytracingUtilsBase {
 public:
  void setRenderSetting(int setting) override { HostState::the().renderSetting = setting; }
  int getRenderSetting() override { return HostState::the().renderSetting; }
};

}  // namespace

kuRaytracingUtilsBase::~kuRaytracingUtilsBase() = default;

kuRaytracingUtilsBase* kuRaytracingManager::getRaytracingUtils() {
  static RaytracingUtils own;
  kuRaytracingUtilsBase* installed = HostState::the().raytracingUtils;
  return installed ? installed : &own;
}

#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "host/rendering/kuRaytracingUtilsBase.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "standalone/kernel/HostState.h"
#include "support/CamerasInBetween.h"
#include "support/PictureScene.h"
#include "support/VariantsTest.h"

/** The ray tracer's settings, and what is asked of them before, during and after an export. */
class RecordedSettings final : public kuRaytracingUtilsBase {
 public:
  explicit RecordedSettings(int first) : _setting(first) {
    kuStandalone::HostState::the().raytracingUtils = this;
  }
  ~RecordedSettings() override { kuStandalone::HostState::the().raytracingUtils = nullptr; }

  void setRenderSetting(int setting) override {
    _setting = setting;
    calls.push_back("set " + std::to_string(setting) + moment());
  }
  int getRenderSetting() override {
    calls.push_back("get " + std::to_string(_setting) + moment());
    return _setting;
  }

  int present() const { return _setting; }

  std::vector<std::string> calls;

 private:
  static std::string moment() {
    const kuStandalone::PictureExports& exports = kuStandalone::HostState::the().exports;
    if (exports.writers > 0) return " during";
    return exports.begun == 0 ? " before" : " after";
  }

  int _setting;
};

/** A camera service in the place of the host's; it tells what it is asked. */
class RecordedCameras final : public CamerasInBetween {
 public:
  kudCameraBaseNode findCamera(const QString& name) override {
    calls.push_back("find '" + name.toStdString() + "'");
    return kudCameraBaseNode(answer);
  }
  void refreshCamera(unsigned id, bool flag) override {
    calls.push_back("refresh " + std::to_string(id) + (flag ? " true" : " false"));
  }
  void activateCamera(unsigned, bool, bool, bool) override { calls.push_back("activate"); }

  unsigned answer = 17;
  std::vector<std::string> calls;
};

/** Fixture of the tests of previews: a set, and a scene whose pictures take no time. */
class PreviewTest : public VariantsTest {
 protected:
  PreviewTest() {
    kuStandalone::HostState::the().renderSetting = 1;
    set.setPreview("former");
    messages.clear();
  }

  static QImage decoded(const QByteArray& file) { return QImage::fromData(file); }

  kuVariantSet& set = *kuVariants::createVariantSet("Summer", false, nullptr);
};

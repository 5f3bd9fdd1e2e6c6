#include <boost/python.hpp>

#include "standalone/script/ClippingSettings.h"
#include "standalone/script/DefineCommand.h"
#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

ClippingSettings& clipping() { return ClippingSettings::the(); }

void setClippingPlane(const osg::Pnt3f& position, const osg::Vec3f& normal, bool invert) {
  clipping().position = position;
  clipping().normal = normal;
  clipping().invert = invert;
}

void setClippingPlaneVisualization(bool show, const osg::Vec3f& color) {
  clipping().showPlane = show;
  clipping().planeColor = color;
}

void setClippingGridVisualization(bool show, const osg::Vec3f& color) {
  clipping().showGrid = show;
  clipping().gridColor = color;
}

void setClippingContourVisualization(bool show, const osg::Vec3f& color, int width) {
  clipping().showContour = show;
  clipping().contourColor = color;
  clipping().contourWidth = width;
}

void setClippingHideScene(bool hide) { clipping().hideScene = hide; }

void enableClippingPlane(bool enable) { clipping().enabled = enable; }

template <auto Field>
auto read() {
  return clipping().*Field;
}

template <auto Field>
void defineGetter(const char* name) {
  defineCommand(name, read<Field>);
}

void defineSetters() {
  const bp::arg show("show");
  const bp::arg color("color");
  defineCommand("setClippingPlane", setClippingPlane,
                (bp::arg("position"), bp::arg("normal"), bp::arg("invert")));
  defineCommand("setClippingPlaneVisualization", setClippingPlaneVisualization, (show, color));
  defineCommand("setClippingGridVisualization", setClippingGridVisualization, (show, color));
  defineCommand("setClippingContourVisualization", setClippingContourVisualization,
                (show, color, bp::arg("width")));
  defineCommand("setClippingHideScene", setClippingHideScene, bp::arg("hide"));
  defineCommand("enableClippingPlane", enableClippingPlane, bp::arg("enable"));
}

void defineGetters() {
  defineGetter<&ClippingSettings::position>("getClippingPlanePosition");
  defineGetter<&ClippingSettings::normal>("getClippingPlaneNormal");
  defineGetter<&ClippingSettings::planeColor>("getClippingPlaneColor");
  defineGetter<&ClippingSettings::gridColor>("getClippingGridColor");
  defineGetter<&ClippingSettings::contourColor>("getClippingContourColor");
  defineGetter<&ClippingSettings::contourWidth>("getClippingContourWidth");
  defineGetter<&ClippingSettings::invert>("getClippingPlaneInvertDirection");
  defineGetter<&ClippingSettings::hideScene>("getClippingHideScene");
  defineGetter<&ClippingSettings::showPlane>("getClippingShowPlane");
  defineGetter<&ClippingSettings::showGrid>("getClippingShowGrid");
  defineGetter<&ClippingSettings::showContour>("getClippingShowContour");
}

}  // namespace

void defineClippingFunctions() {
  defineSetters();
  defineGetters();
}

}  // namespace kuStandalone

#include "scene/kuAnalyzerVariant.h"

#include <locale>
#include <sstream>

#include "host/kernel/kuConnector.h"
#include "host/script/kuScript.h"

namespace {

enum ClipState { Enable = 1, Disable = 2, MoveOnly = 3 };

const char* flag(bool value) { return value ? "true" : "false"; }

/** Three numbers with the name of their class. A float has up to six significant digits. */
void write(std::ostream& script, const char* type, const osg::Vector<float, 3>& value) {
  script << type << "(" << value[0] << ", " << value[1] << ", " << value[2] << ")";
}

}  // namespace

void kuAnalyzerVariant::execute() {
  const std::string text = script();
  if (!text.empty()) kuScript::executeNUS(text.c_str(), kuConnector::the()->syncVariants());
}

std::string kuAnalyzerVariant::script() const {
  if (clipState == Disable) return "enableClippingPlane(false)\n";
  if (clipState != Enable && clipState != MoveOnly) return {};

  std::ostringstream text;
  // The interpreter reads numbers with a point, whatever language the application speaks.
  text.imbue(std::locale::classic());
  writePlane(text);
  if (clipState == Enable) writeVisualization(text);
  return text.str();
}

// No blank behind the commas between the arguments, though there is one inside the vectors.
void kuAnalyzerVariant::writePlane(std::ostream& script) const {
  script << "setClippingPlane(";
  write(script, "Pnt3f", clipPlanePosition);
  script << ",";
  write(script, "Vec3f", clipPlaneNormal);
  script << "," << flag(clipPlaneInvert) << ")\n";
}

void kuAnalyzerVariant::writeVisualization(std::ostream& script) const {
  script << "setClippingPlaneVisualization(" << flag(clipPlaneShow) << ", ";
  write(script, "Vec3f", clipPlaneColor);
  script << ")\nsetClippingGridVisualization(" << flag(clipGridShow) << ", ";
  write(script, "Vec3f", clipGridColor);
  script << ")\nsetClippingContourVisualization(" << flag(clipContourShow) << ", ";
  write(script, "Vec3f", clipContourColor);
  script << ", " << clipContourWidth << ")\n";
  script << "setClippingHideScene(" << flag(clipPlaneHideScene) << ")\n";
  script << "enableClippingPlane(true)\n";
}

#include <locale.h>

#include <cstdio>
#include <string>

#include "host/script/kuScript.h"
#include "model/kuVariantSet.h"
#include "script/kuVariantSetPtr.h"

namespace {

/** Numbers are read with a point, whatever language the application speaks. */
class PlainNumbers {
 public:
  PlainNumbers() : _plain(newlocale(LC_NUMERIC_MASK, "C", nullptr)), _former(uselocale(_plain)) {}
  ~PlainNumbers() {
    uselocale(_former);
    freelocale(_plain);
  }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  locale_t _plain;
  locale_t _former;
};

/** Three numbers with a word between each two; what cannot be read stays 0. */
osg::Vec3f askVector(const char* expression) {
  const std::string answer = kuScript::executeNUSR(expression);
  float numbers[3] = {0, 0, 0};
  char word[10];
  const PlainNumbers plain;
  // How many were read does not matter.
  (void)std::sscanf(answer.c_str(), "%f %9s %f %9s %f", &numbers[0], word, &numbers[1], word,
                    &numbers[2]);
  return {numbers[0], numbers[1], numbers[2]};
}

int askNumber(const char* expression, int otherwise) {
  const std::string answer = kuScript::executeNUSR(expression);
  int number = otherwise;
  (void)std::sscanf(answer.c_str(), "%i", &number);
  return number;
}

bool askFlag(const char* expression) { return kuScript::executeNUSR(expression) == "True"; }

void storePosition(kuVariantSet& set, const osg::Vec3f& position) {
  set.setClippingPlanePositionX(position[0]);
  set.setClippingPlanePositionY(position[1]);
  set.setClippingPlanePositionZ(position[2]);
}

void storeNormal(kuVariantSet& set, const osg::Vec3f& normal) {
  set.setClippingPlaneNormalX(normal[0]);
  set.setClippingPlaneNormalY(normal[1]);
  set.setClippingPlaneNormalZ(normal[2]);
}

void storePlaneColor(kuVariantSet& set, const osg::Vec3f& color) {
  set.setClippingPlaneColorR(color[0]);
  set.setClippingPlaneColorG(color[1]);
  set.setClippingPlaneColorB(color[2]);
}

void storeGridColor(kuVariantSet& set, const osg::Vec3f& color) {
  set.setClippingGridColorR(color[0]);
  set.setClippingGridColorG(color[1]);
  set.setClippingGridColorB(color[2]);
}

void storeContourColor(kuVariantSet& set, const osg::Vec3f& color) {
  set.setClippingContourColorR(color[0]);
  set.setClippingContourColorG(color[1]);
  set.setClippingContourColorB(color[2]);
}

}  // namespace

void kuVariantSetPtr::setClippingState(int state) {
  if (variantSet) variantSet->setClippingState(state);
}

void kuVariantSetPtr::addClippingPlane(const osg::Pnt3f& position, const osg::Vec3f& normal,
                                       bool invertDirection, bool hideScene, bool showClippingPlane,
                                       bool showGrid, bool showContour) {
  if (!variantSet) return;
  storePosition(*variantSet, position);
  storeNormal(*variantSet, normal);
  variantSet->setClippingInvert(invertDirection);
  variantSet->setClippingHideScene(hideScene);
  variantSet->setClippingShowPlane(showClippingPlane);
  variantSet->setClippingShowGrid(showGrid);
  variantSet->setClippingShowContour(showContour);
}

void kuVariantSetPtr::addCurrentClippingPlane() {
  if (!variantSet) return;
  storePosition(*variantSet, askVector("getClippingPlanePosition()"));
  storeNormal(*variantSet, askVector("getClippingPlaneNormal()"));
  storePlaneColor(*variantSet, askVector("getClippingPlaneColor()"));
  storeGridColor(*variantSet, askVector("getClippingGridColor()"));
  storeContourColor(*variantSet, askVector("getClippingContourColor()"));
  variantSet->setClippingContourWidth(askNumber("getClippingContourWidth()", 1));
  variantSet->setClippingInvert(askFlag("getClippingPlaneInvertDirection()"));
  variantSet->setClippingHideScene(askFlag("getClippingHideScene()"));
  variantSet->setClippingShowPlane(askFlag("getClippingShowPlane()"));
  variantSet->setClippingShowGrid(askFlag("getClippingShowGrid()"));
  variantSet->setClippingShowContour(askFlag("getClippingShowContour()"));
}

#pragma once

#include <iosfwd>
#include <string>

#include "host/osg/Vector.h"
#include "model/kuVariant.h"

/**
 * The clipping settings of a variant set. The clipping plane lives behind the host's script
 * functions, so the settings are applied as a short script. Each set holds exactly one by value;
 * its name and options are never used, and selecting it does nothing.
 */
class KUVARIANTS_EXPORT kuAnalyzerVariant : public kuVariant {
 public:
  /**
   * Builds the script that the clipping state asks for, and hands it to the host's interpreter. Its
   * failure is the interpreter's to report.
   */
  void execute();

 private:
  friend class kuVariantSet;
  friend struct kuVariantsTestAccess;

  /** What the clipping state asks for; empty where it asks for nothing. */
  std::string script() const;
  void writePlane(std::ostream& script) const;
  void writeVisualization(std::ostream& script) const;

  /** 0 no change, 1 enable clipping, 2 disable clipping, 3 move the plane but keep the rest; any
   * other value is as 0. */
  int clipState = 0;
  osg::Pnt3f clipPlanePosition{0, 0, 0};
  osg::Vec3f clipPlaneNormal{0, 1, 0};
  bool clipPlaneShow = true;
  osg::Vec3f clipPlaneColor{0.2F, 0.3F, 0.4F};
  bool clipPlaneInvert = false;
  bool clipPlaneHideScene = false;
  bool clipGridShow = true;
  osg::Vec3f clipGridColor{0.63F, 0.82F, 0.89F};
  bool clipContourShow = true;
  osg::Vec3f clipContourColor{1, 0.7F, 0};
  int clipContourWidth = 1;
};

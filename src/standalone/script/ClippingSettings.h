#pragma once

#include "host/kuHostExport.h"
#include "host/osg/Vector.h"

namespace kuStandalone {

/**
 * The clipping of the present picture: one plane, what is shown of it, and where it cuts the scene.
 * Scripts set it, the renderer and the command line read it; it stays as it is when another scene
 * is installed. Values are kept as they were given: whoever draws copes with a normal of length 0
 * or with numbers that are not finite.
 */
struct KUHOST_EXPORT ClippingSettings {
  static ClippingSettings& the();

  /** Whether the plane clips. */
  bool enabled = false;
  /** A point on the plane, in scene units. */
  osg::Pnt3f position;
  /** The plane's normal, of any length. */
  osg::Vec3f normal{0, 1, 0};
  /** Whether the other side is cut away. */
  bool invert = false;
  /** Whether nothing of the scene shows but the cut. */
  bool hideScene = false;

  /** What shows of the plane. Colours are red, green and blue from 0 to 1. */
  bool showPlane = true;
  osg::Vec3f planeColor{0.2f, 0.3f, 0.4f};
  bool showGrid = true;
  osg::Vec3f gridColor{0.63f, 0.82f, 0.89f};
  bool showContour = true;
  osg::Vec3f contourColor{1, 0.7f, 0};
  /** In pixels. */
  int contourWidth = 1;
};

}  // namespace kuStandalone

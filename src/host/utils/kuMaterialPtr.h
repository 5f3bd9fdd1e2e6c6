#pragma once

#include "host/osg/Material.h"

/** The script-friendly form of a material handle, and the form in which searches answer. */
class KUHOST_EXPORT kuMaterialPtr {
 public:
  kuMaterialPtr() = default;
  kuMaterialPtr(osg::NullFieldContainer) {}
  kuMaterialPtr(osg::MaterialPtr material) : _material(std::move(material)) {}
  kuMaterialPtr(const kuMaterialPtr&) = default;
  kuMaterialPtr(kuMaterialPtr&&) noexcept = default;
  kuMaterialPtr& operator=(const kuMaterialPtr&) = default;
  kuMaterialPtr& operator=(kuMaterialPtr&&) noexcept = default;
  virtual ~kuMaterialPtr();

  /** Whether it holds a material. */
  bool isValid() const { return static_cast<bool>(_material); }

  const osg::MaterialPtr& getMaterial() const { return _material; }
  operator const osg::MaterialPtr&() const { return _material; }

 private:
  osg::MaterialPtr _material;
};

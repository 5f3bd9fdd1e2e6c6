#pragma once

#include "host/osg/MultiMaterial.h"
#include "host/osg/NodeCore.h"

namespace kuStandalone {

/** Gives a core's material field a new value and keeps the materials' lists of users right. */
void assignMaterial(osg::NodeCore& user, osg::MaterialPtr& field, osg::MaterialPtr material);

// The same for the field of sub-materials and the lists of those that hold a material.

void assignSubMaterials(osg::MultiMaterial& holder, osg::MFMaterialPtr materials);
/** @param material not null. */
void addSubMaterial(osg::MultiMaterial& holder, const osg::MaterialPtr& material);
/** Takes the first entry of that material out; nothing where there is none. */
void removeSubMaterial(osg::MultiMaterial& holder, const osg::MaterialPtr& material);

}  // namespace kuStandalone

#include "standalone/rendering/Mesh.h"

#include "PictureTest.h"
#include "standalone/gltf/GltfSource.h"

using namespace kuStandalone;

namespace {

class MeshTest : public PictureTest {
 protected:
  std::shared_ptr<const Mesh> read(const Shape& shape) {
    const int index = mesh(shape);
    load();
    return readMesh(dynamic_cast<const GltfSource&>(*Scene::the().source), index, 0);
  }
};

}  // namespace

TEST_F(MeshTest, ATriangleOfATenthOfAMillimetreHasItsFlatNormal) {
  Shape shape;
  shape.positions = {{0, 0, 0}, {1e-4f, 0, 0}, {0, 0, -1e-4f}};
  const auto made = read(shape);
  ASSERT_EQ(made->triangles.size(), 1u);
  EXPECT_EQ(made->normals, std::vector<QVector3D>(3, {0, 1, 0}));
  shape.positions = {{0, 0, 0}, {1e-4f, 0, 0}, {0, 1e-4f, 0}};
  EXPECT_EQ(read(shape)->normals, std::vector<QVector3D>(3, {0, 0, 1}));
}

TEST_F(MeshTest, AStripTurnsEverySecondTriangle) {
  Shape shape = quad(0, 0, 1, 1);
  shape.mode = 5;
  shape.normals.assign(4, {0, 0, 1});
  shape.indices = {0, 1, 3, 2};
  EXPECT_EQ(read(shape)->triangles, (std::vector<Triangle>{{0, 1, 3}, {3, 1, 2}}));
}

TEST_F(MeshTest, AFanKeepsItsFirstVertex) {
  Shape shape = quad(0, 0, 1, 1);
  shape.mode = 6;
  shape.normals.assign(4, {0, 0, 1});
  shape.indices = {0, 1, 2, 3};
  EXPECT_EQ(read(shape)->triangles, (std::vector<Triangle>{{0, 1, 2}, {0, 2, 3}}));
}

TEST_F(MeshTest, TangentsFollowTheTextureCoordinates) {
  Shape shape = quad(0, 0, 1, 1);
  shape.normals.assign(4, {0, 0, 1});
  EXPECT_EQ(read(shape)->tangents, std::vector<QVector4D>(4, {1, 0, 0, 1}));
  for (QVector2D& at : shape.texcoords)
    at.setX(-at.x());
  EXPECT_EQ(read(shape)->tangents, std::vector<QVector4D>(4, {-1, 0, 0, -1}));
}

TEST_F(MeshTest, WhatTheFileDoesNotHaveIsAnEmptyMesh) {
  load();
  const auto& source = dynamic_cast<const GltfSource&>(*Scene::the().source);
  EXPECT_TRUE(readMesh(source, 5, 0)->triangles.empty());
  EXPECT_TRUE(readMesh(source, -1, -1)->triangles.empty());
}

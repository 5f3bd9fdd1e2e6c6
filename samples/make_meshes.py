"""Shapes of the sample scene: triangles with flat normals, in metres, y up, the car's nose at +x."""

import math


class Shape:
    """A list of triangles; every method gives a new shape or adds to this one."""

    def __init__(self):
        self.positions = []
        self.normals = []

    def triangle(self, a, b, c):
        u = [b[i] - a[i] for i in range(3)]
        v = [c[i] - a[i] for i in range(3)]
        n = [u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]]
        length = math.sqrt(sum(x * x for x in n)) or 1.0
        n = [x / length for x in n]
        self.positions += [a, b, c]
        self.normals += [n, n, n]

    def quad(self, a, b, c, d):
        self.triangle(a, b, c)
        self.triangle(a, c, d)

    def add(self, other, offset=(0, 0, 0)):
        self.positions += [[p[i] + offset[i] for i in range(3)] for p in other.positions]
        self.normals += other.normals
        return self


def box(x0, x1, y0, y1, z0, z1):
    shape = Shape()
    p = [[x, y, z] for x in (x0, x1) for y in (y0, y1) for z in (z0, z1)]
    for a, b, c, d in ((0, 1, 3, 2), (4, 6, 7, 5), (0, 4, 5, 1), (2, 3, 7, 6), (0, 2, 6, 4),
                       (1, 5, 7, 3)):
        shape.quad(p[a], p[b], p[c], p[d])
    return shape


def extrude(profile, half_width, top_half_width=None, y0=0.0, y1=1.0):
    """A side profile (x, y), counter-clockwise seen from +z, spread over the width. The width
    narrows from half_width at height y0 to top_half_width at height y1."""
    top = half_width if top_half_width is None else top_half_width

    def width(y):
        t = min(max((y - y0) / (y1 - y0), 0.0), 1.0)
        return half_width + (top - half_width) * t

    shape = Shape()
    right = [[x, y, width(y)] for x, y in profile]
    left = [[x, y, -width(y)] for x, y in profile]
    count = len(profile)
    for i in range(count):
        j = (i + 1) % count
        shape.quad(right[i], left[i], left[j], right[j])
    for a, b, c in triangulate(profile):
        shape.triangle(right[a], right[b], right[c])
        shape.triangle(left[a], left[c], left[b])
    return shape


def triangulate(polygon):
    """Ear clipping of a simple counter-clockwise polygon; gives triples of indices."""

    def area(a, b, c):
        return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])

    def inside(p, a, b, c):
        return area(a, b, p) >= 0 and area(b, c, p) >= 0 and area(c, a, p) >= 0

    rest = list(range(len(polygon)))
    triangles = []
    while len(rest) > 3:
        for k in range(len(rest)):
            i, j, m = rest[k - 1], rest[k], rest[(k + 1) % len(rest)]
            a, b, c = polygon[i], polygon[j], polygon[m]
            if area(a, b, c) <= 1e-12:
                continue
            if any(inside(polygon[o], a, b, c) for o in rest if o not in (i, j, m)):
                continue
            triangles.append((i, j, m))
            rest.pop(k)
            break
        else:
            raise ValueError("the polygon is not simple")
    triangles.append(tuple(rest))
    return triangles


def arc(center_x, center_y, radius, from_degrees, to_degrees, steps):
    points = []
    for i in range(steps + 1):
        angle = math.radians(from_degrees + (to_degrees - from_degrees) * i / steps)
        points.append((center_x + radius * math.cos(angle), center_y + radius * math.sin(angle)))
    return points


def cylinder(radius, half_width, segments=32, inner=0.0):
    """A disc or ring about the z axis."""
    shape = Shape()
    for i in range(segments):
        a, b = 2 * math.pi * i / segments, 2 * math.pi * (i + 1) / segments
        p = [[r * math.cos(t), r * math.sin(t), z]
             for r in (inner, radius) for t in (a, b) for z in (-half_width, half_width)]
        shape.quad(p[4], p[6], p[7], p[5])
        shape.quad(p[1], p[5], p[7], p[3])
        shape.quad(p[0], p[2], p[6], p[4])
        if inner > 0:
            shape.quad(p[0], p[1], p[3], p[2])
    return shape


def spokes(count, radius, width, half_width):
    shape = Shape()
    for i in range(count):
        angle = 2 * math.pi * i / count
        c, s = math.cos(angle), math.sin(angle)
        spoke = box(0.0, radius, -width / 2, width / 2, -half_width, half_width)
        spoke.positions = [[c * x - s * y, s * x + c * y, z] for x, y, z in spoke.positions]
        spoke.normals = [[c * x - s * y, s * x + c * y, z] for x, y, z in spoke.normals]
        shape.add(spoke)
    return shape

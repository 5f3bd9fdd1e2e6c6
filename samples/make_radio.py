#!/usr/bin/env python3
"""Makes the scenes of docs/capture.md: one radio in two paints, as radio/red.gltf and
radio/blue.gltf beside this file. They differ in the material of its body and in nothing else.

Run it after a change and commit what it wrote; the same program gives the same bytes.
"""

from pathlib import Path

from make_gltf import Gltf, looking, turned
from make_meshes import Shape, arc, box, cylinder, extrude

HERE = Path(__file__).resolve().parent
FRONT = 0.06


def rounded(width, height, radius, bottom=0.0):
    """The outline of a rectangle with round corners, counter-clockwise, upright on the floor."""
    x, y0, y1 = width / 2 - radius, bottom + radius, bottom + height - radius
    return (arc(x, y1, radius, 0, 90, 12) + arc(-x, y1, radius, 90, 180, 12) +
            arc(-x, y0, radius, 180, 270, 12) + arc(x, y0, radius, 270, 360, 12))


def plate(profile, thickness, z):
    return Shape().add(extrude(profile, thickness / 2), (0, 0, z))


def make_materials(gltf):
    gltf.material("Red", (0.55, 0.02, 0.02), 0.0, 0.28)
    gltf.material("Blue", (0.02, 0.11, 0.36), 0.0, 0.28)
    gltf.material("Cream", (0.86, 0.79, 0.63), 0.0, 0.5)
    gltf.material("Cloth", (0.05, 0.045, 0.04), 0.0, 0.95)
    gltf.material("Chrome", (0.86, 0.87, 0.88), 1.0, 0.12)
    gltf.material("Leather", (0.24, 0.1, 0.04), 0.0, 0.6)
    gltf.material("Rubber", (0.03, 0.03, 0.03), 0.0, 0.9)
    gltf.material("Table", (0.5, 0.43, 0.35), 0.0, 0.65)


def make_speaker(gltf):
    grille = Shape()
    for radius in (0.018, 0.032, 0.046, 0.06):
        grille.add(cylinder(radius, 0.004, 32, radius - 0.004))
    grille.add(cylinder(0.078, 0.007, 40, 0.069)).add(cylinder(0.007, 0.006, 24))
    cloth = cylinder(0.072, 0.002, 32)
    return gltf.node("Speaker", translation=[-0.075, 0.125, FRONT + 0.008], mesh=gltf.mesh(
        "Speaker", (cloth, "Cloth"), (grille, "Chrome")))


def make_dial(gltf):
    marks = Shape().add(cylinder(0.038, 0.003, 32, 0.035))
    hand = Shape().add(box(-0.0015, 0.0015, 0.0, 0.03, 0.002, 0.004))
    return gltf.node("Dial", translation=[0.095, 0.16, FRONT + 0.007], mesh=gltf.mesh(
        "Dial", (cylinder(0.036, 0.002, 32), "Cloth"), (marks.add(hand), "Chrome")))


def make_knobs(gltf):
    def knob(name, x):
        return gltf.node(name, translation=[x, 0.08, FRONT + 0.012], mesh=gltf.mesh(
            name, (Shape().add(cylinder(0.017, 0.012, 32)), "Chrome")))

    return [knob("Volume", 0.068), knob("Tuning", 0.122)]


def make_handle(gltf):
    outline = arc(0, 0, 0.115, 0, 180, 32) + arc(0, 0, 0.103, 180, 0, 32)
    strap = extrude([(x, 0.235 + 0.48 * y) for x, y in outline], 0.016)
    return gltf.node("Handle", mesh=gltf.mesh("Handle", (strap, "Leather")))


def make_antenna(gltf):
    rod = extrude([(0.148, 0.235), (0.152, 0.235), (0.232, 0.43), (0.229, 0.431)], 0.002)
    tip = Shape().add(cylinder(0.005, 0.005, 20), (0.2305, 0.432, 0.0))
    return gltf.node("Antenna", translation=[0, 0, -0.04], mesh=gltf.mesh(
        "Antenna", (rod.add(tip), "Chrome")))


def make_feet(gltf):
    feet = Shape()
    for x in (-0.13, 0.13):
        feet.add(box(x - 0.02, x + 0.02, 0.0, 0.012, -0.045, 0.045))
    return gltf.node("Feet", mesh=gltf.mesh("Feet", (feet, "Rubber")))


def make_radio(gltf, paint):
    body = extrude(rounded(0.36, 0.23, 0.035, 0.01), FRONT)
    front = plate(rounded(0.316, 0.186, 0.022, 0.032), 0.006, FRONT + 0.003)
    return gltf.node("Radio", children=[
        gltf.node("Body", mesh=gltf.mesh("Body", (body, paint))),
        gltf.node("Front", mesh=gltf.mesh("Front", (front, "Cream"))),
        make_speaker(gltf), make_dial(gltf), *make_knobs(gltf), make_handle(gltf),
        make_antenna(gltf), make_feet(gltf)])


def make_view(gltf):
    lens = gltf.append("cameras", {"name": "Lens", "type": "perspective", "perspective": {
        "yfov": 0.53, "znear": 0.02, "aspectRatio": 1.5}})
    eye, target = (0.42, 0.38, 0.86), (0.015, 0.19, 0.0)
    return gltf.node("View", camera=lens, translation=list(eye), rotation=looking(eye, target))


def scene(paint):
    gltf = Gltf("make_radio.py")
    gltf.json["extensionsUsed"] = ["KHR_lights_punctual"]
    del gltf.json["extensions"]["KHR_materials_variants"]
    make_materials(gltf)
    table = gltf.node("Table", mesh=gltf.mesh("Table", (box(-3, 3, -0.02, 0.0, -3, 3), "Table")))
    lamp = gltf.node("Lamp", rotation=turned((0.82, 0.57, 0), -62), extensions=gltf.light(
        "Lamp", "directional", [1.0, 0.97, 0.92], 2.6))
    gltf.append("scenes", {"name": "Radio", "extras": {"activeCamera": "View"}, "nodes": [
        make_radio(gltf, paint), table, lamp, make_view(gltf)]})
    return gltf.text()


def main():
    (HERE / "radio").mkdir(exist_ok=True)
    for paint in ("Red", "Blue"):
        (HERE / "radio" / f"{paint.lower()}.gltf").write_text(scene(paint), encoding="utf-8")


if __name__ == "__main__":
    main()

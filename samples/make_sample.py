#!/usr/bin/env python3
"""Makes the sample scene: a small car, as car/car.gltf beside this file.

Run it after a change and commit what it wrote; the same program gives the same bytes. The document
with the variants of the scene, car/car.variants.xml, is written by hand.
"""

import math
from pathlib import Path

from make_gltf import Gltf, looking, turned
from make_meshes import Shape, arc, box, cylinder, extrude, spokes

HERE = Path(__file__).resolve().parent
AXLES = (-1.28, 1.28)
WHEEL_RADIUS = 0.33
WHEEL_SIDE = 0.74


def picture(width, height, coverage):
    """An antialiased picture: coverage(x, y) in 0..1 units gives (r, g, b, a) in 0..1."""
    rows = []
    for j in range(height):
        row = []
        for i in range(width):
            samples = [coverage((i + (k % 3 + 0.5) / 3) / width, (j + (k // 3 + 0.5) / 3) / height)
                       for k in range(9)]
            alpha = sum(s[3] for s in samples)
            color = [sum(s[c] * s[3] for s in samples) / alpha if alpha else 0 for c in range(3)]
            row.append(tuple(round(255 * v) for v in color) + (round(255 * alpha / 9),))
        rows.append(row)
    return rows


def sun(x, y):
    dx, dy = x - 0.5, y - 0.5
    distance, angle = math.hypot(dx, dy), math.atan2(dy, dx)
    ray = 0.28 < distance < 0.44 and abs(math.sin(4 * angle)) < 0.35
    return (1.0, 0.72, 0.1, 1.0 if distance < 0.22 or ray else 0.0)


def snowflake(x, y):
    dx, dy = x - 0.5, y - 0.5
    for k in range(3):
        angle = math.pi * k / 3
        along = dx * math.cos(angle) + dy * math.sin(angle)
        across = abs(dy * math.cos(angle) - dx * math.sin(angle))
        twig = 0.2 < abs(along) < 0.36 and abs(across - (abs(along) - 0.2)) < 0.03
        if (abs(along) < 0.44 and across < 0.03) or twig:
            return (0.45, 0.7, 0.95, 1.0)
    return (0.45, 0.7, 0.95, 0.0)


def badge(x, y):
    """A ring with a wing on each side."""
    dx, dy = (x - 0.5) * 4, y - 0.5
    ring = 0.26 < math.hypot(dx, dy) < 0.4
    wing = 0.5 < abs(dx) < 1.9 and abs(dy) < 0.2 * (1.9 - abs(dx)) / 1.4 + 0.03
    return (0.15, 0.17, 0.2, 1.0 if ring or wing else 0.0)


def body_profile():
    """The lower body with its two wheel arches, from the rear bumper round to the front."""
    points = [(-2.02, 0.36), (-1.7, 0.24)]
    points += arc(AXLES[0], 0.33, 0.42, 192, -12, 14)
    points += arc(AXLES[1], 0.33, 0.42, 192, -12, 14)
    points += [(1.78, 0.24), (2.06, 0.34), (2.1, 0.55), (1.98, 0.72), (1.2, 0.86), (0.75, 0.92),
               (-1.55, 0.95), (-2.0, 0.9), (-2.08, 0.6)]
    return points


def make_materials(gltf):
    gltf.material("Red", (0.62, 0.03, 0.03), 0.25, 0.3)
    gltf.material("Blue", (0.03, 0.12, 0.45), 0.25, 0.3)
    gltf.material("Silver", (0.62, 0.64, 0.66), 0.85, 0.3)
    switch = [gltf.material_index[name] for name in ("Red", "Blue", "Silver")]
    gltf.material("Paint", (0.62, 0.03, 0.03), 0.25, 0.3,
                  extras={"switch": {"materials": switch, "choice": 0}})
    gltf.material("Glass", (0.5, 0.6, 0.65, 0.35), 0.0, 0.05,
                  extras={"states": ["Clear", "Tinted"], "state": 0})
    gltf.material("Rubber", (0.02, 0.02, 0.02), 0.0, 0.9)
    gltf.material("Steel", (0.25, 0.26, 0.28), 0.7, 0.5)
    gltf.material("Alloy", (0.8, 0.81, 0.83), 1.0, 0.2)
    gltf.material("Chrome", (0.9, 0.9, 0.92), 1.0, 0.08)
    gltf.material("Canvas", (0.05, 0.05, 0.06), 0.0, 0.95)
    gltf.material("Fabric", (0.2, 0.21, 0.24), 0.0, 0.95)
    gltf.material("Leather", (0.42, 0.2, 0.09), 0.0, 0.45)
    gltf.material("Trim", (0.06, 0.06, 0.07), 0.0, 0.6)
    gltf.material("Lamp", (0.95, 0.95, 0.9), 0.0, 0.1, emissiveFactor=[0.3, 0.3, 0.25])
    gltf.material("Tarmac", (0.16, 0.16, 0.17), 0.0, 0.95)
    gltf.material("Studio Floor", (0.75, 0.75, 0.76), 0.0, 0.7)


def make_body(gltf):
    lower = extrude(body_profile(), 0.84, 0.8, 0.3, 0.95)
    lamps = Shape()
    for side in (-1, 1):
        lamps.add(box(1.95, 2.07, 0.56, 0.68, side * 0.62 - 0.12, side * 0.62 + 0.12))
    return gltf.node("Body", mesh=gltf.mesh(
        "Body", (lower, "Paint"), (lamps, "Lamp"),
        (box(-2.09, -2.0, 0.3, 0.42, -0.7, 0.7), "Trim")))


def make_interior(gltf):
    variants = gltf.json["extensions"]["KHR_materials_variants"]["variants"]
    variants += [{"name": "Cloth Seats"}, {"name": "Leather Seats"}]
    seat = Shape()
    seat.add(box(-0.25, 0.25, 0.45, 0.6, -0.22, 0.22)).add(box(-0.34, -0.2, 0.55, 1.15, -0.22, 0.22))
    mesh = gltf.mesh("Seat", (seat, "Fabric", [("Fabric", [0]), ("Leather", [1])]))
    seats = [gltf.node(f"Seat {side}", mesh=mesh, translation=[x, 0.0, z])
             for side, x, z in (("Left", 0.2, -0.38), ("Right", 0.2, 0.38), ("Rear", -0.75, 0.0))]
    return gltf.node("Interior", children=seats, extras={
        "materialGroup": {"material": gltf.material_index["Trim"], "ignore": True}})


def make_roof(gltf):
    glass = extrude([(-1.5, 0.93), (0.78, 0.9), (0.15, 1.34), (-1.05, 1.36)], 0.76, 0.6, 0.9, 1.36)
    cabin = gltf.node("Windows", mesh=gltf.mesh("Windows", (glass, "Glass")))
    top = extrude([(-1.08, 1.35), (0.2, 1.33), (0.05, 1.4), (-0.95, 1.42)], 0.62, 0.58, 1.33, 1.42)
    rails = Shape()
    for side in (-0.5, 0.5):
        rails.add(box(-0.9, 0.0, 1.42, 1.47, side - 0.02, side + 0.02))
    case = extrude([(-0.95, 1.5), (0.1, 1.5), (0.0, 1.68), (-0.85, 1.72)], 0.38, 0.3, 1.5, 1.72)
    empty = gltf.node("No Rack")
    rack_rails = gltf.node("Rails", mesh=gltf.mesh("Rails", (rails, "Chrome")))
    rack_box = gltf.node("Roof Box", mesh=gltf.mesh("Roof Box", (case, "Trim")))
    rack = gltf.node("Rack", children=[empty, rack_rails, rack_box], extras={"switch": 0})
    shell = gltf.node("Hardtop Shell", mesh=gltf.mesh("Hardtop", (top, "Paint")))
    hardtop = gltf.node("Hardtop", children=[cabin, shell, rack])
    canvas = extrude([(-1.52, 0.94), (0.1, 0.94), (0.2, 1.33), (-0.95, 1.4)], 0.74, 0.58, 0.94, 1.4)
    softtop = gltf.node("Softtop", mesh=gltf.mesh("Softtop", (canvas, "Canvas")))
    return gltf.node("Roof", children=[hardtop, softtop, gltf.node("Open Top")],
                     extras={"switch": 0})


def make_wheels(gltf):
    tyre = cylinder(WHEEL_RADIUS, 0.1, 36, 0.22)
    steel = Shape().add(cylinder(0.22, 0.06, 24))
    alloy = Shape().add(cylinder(0.22, 0.08, 36, 0.19)).add(spokes(5, 0.2, 0.07, 0.07))
    alloy.add(cylinder(0.05, 0.085, 16))
    kinds = []
    for kind, rim, material in (("Steel Wheels", steel, "Steel"), ("Alloy Wheels", alloy, "Alloy")):
        mesh = gltf.mesh(kind, (tyre, "Rubber"), (rim, material))
        places = [(x, side * WHEEL_SIDE) for x in AXLES for side in (-1, 1)]
        wheels = []
        for number, (x, z) in enumerate(places):
            place = {"translation": [x, WHEEL_RADIUS, z]}
            name = f"{kind[:-1]} {number + 1}"
            if number:
                place["extras"] = {"cloneOf": f"{kind[:-1]} 1"}
            else:
                place["mesh"] = mesh
            wheels.append(gltf.node(name, **place))
        kinds.append(gltf.node(kind, children=wheels))
    return gltf.node("Wheels", children=kinds, extras={"switch": 0})


def make_mirrors(gltf):
    """One switch on the left and its clone of the same name on the right."""
    shell = gltf.node("Painted", mesh=gltf.mesh("Mirror", (box(-0.08, 0.06, -0.05, 0.07, -0.1, 0.1),
                                                           "Paint")))
    chrome = gltf.node("Chromed", mesh=gltf.mesh(
        "Mirror Chrome", (box(-0.08, 0.06, -0.05, 0.07, -0.1, 0.1), "Chrome")))
    left = gltf.node("Mirror", children=[shell, chrome], translation=[0.5, 1.0, -0.92],
                     extras={"switch": 0})
    right = gltf.node("Mirror", translation=[0.5, 1.0, 0.92], extras={"cloneOf": "Mirror"})
    return [left, right]


def hinged(gltf, name, part, states):
    return gltf.node(name, children=[part], extras={
        "transforms": [{"name": state, "rotation": turned(axis, angle)}
                       for state, axis, angle in states], "transform": 0, "supposed": 0})


def make_doors(gltf):
    nodes = []
    for name, side in (("Left Door", -1), ("Right Door", 1)):
        z0, z1 = sorted((side * 0.83, side * 0.87))
        panel = gltf.node(f"{name} Panel", mesh=gltf.mesh(
            name, (box(-1.1, 0.0, 0.34, 0.88, z0, z1), "Paint"),
            (box(-0.98, -0.82, 0.76, 0.79, z0 - 0.015, z1 + 0.015), "Chrome")))
        door = hinged(gltf, name, panel, [("Closed", (0, 1, 0), 0), ("Ajar", (0, 1, 0), side * 20),
                                          ("Open", (0, 1, 0), side * 62)])
        # The hinge stands at the front edge: the panel is moved back to its place by its parent.
        gltf.json["nodes"][panel]["translation"] = [0.0, 0.0, -side * 0.85]
        nodes.append(gltf.node(f"{name} Hinge", children=[door],
                               translation=[0.62, 0.0, side * 0.85]))
    lid = gltf.node("Bonnet Lid", mesh=gltf.mesh(
        "Bonnet", (extrude([(0.0, 0.0), (1.12, -0.17), (1.14, -0.13), (0.0, 0.04)], 0.62), "Paint")))
    bonnet = hinged(gltf, "Bonnet", lid, [("Closed", (0, 0, 1), 0), ("Open", (0, 0, 1), 48)])
    nodes.append(gltf.node("Bonnet Hinge", children=[bonnet], translation=[0.82, 0.9, 0.0]))
    return nodes


def make_lights(gltf):
    forward = turned((0, 1, 0), -90)
    nodes = []
    for name, side in (("Left", -1), ("Right", 1)):
        nodes.append(gltf.node(f"Headlight {name}", translation=[2.1, 0.62, side * 0.62],
                               rotation=forward, extras={"on": False}, extensions=gltf.light(
            f"Headlight {name}", "spot", [1.0, 0.96, 0.88], 900.0, range=40.0,
            spot={"innerConeAngle": 0.25, "outerConeAngle": 0.55})))
    nodes.append(gltf.node("Interior Light", translation=[0.0, 1.3, 0.0], extras={"on": False},
                           extensions=gltf.light("Interior Light", "point", [1.0, 0.85, 0.65], 12.0)))
    nodes.append(gltf.node("Sun", rotation=turned((1, 0, 0), -55), extensions=gltf.light(
        "Sun", "directional", [1.0, 0.98, 0.94], 3.0)))
    return nodes


def make_surroundings(gltf):
    street = gltf.node("Street", mesh=gltf.mesh(
        "Street", (box(-12, 12, -0.02, 0.0, -4, 4), "Tarmac")))
    studio = gltf.node("Studio", mesh=gltf.mesh(
        "Studio", (box(-5, 5, -0.02, 0.0, -5, 5), "Studio Floor")))
    return gltf.node("Surroundings", children=[studio, street],
                     extras={"switch": 0, "environmentSwitch": True})


def make_cameras(gltf):
    lens = gltf.append("cameras", {"name": "Lens", "type": "perspective",
                                   "perspective": {"yfov": 0.55, "znear": 0.05, "aspectRatio": 1.5}})
    wide = gltf.append("cameras", {"name": "Wide", "type": "perspective",
                                   "perspective": {"yfov": 1.0, "znear": 0.02, "aspectRatio": 1.5}})

    def view(name, camera, eye, target):
        return gltf.node(name, camera=camera, translation=list(eye),
                         rotation=looking(eye, target))

    return [view("Front View", lens, (6.2, 2.1, 4.6), (0.1, 0.6, 0.0)),
            view("Side View", lens, (0.0, 1.3, 7.6), (0.0, 0.65, 0.0)),
            view("Rear View", lens, (-6.0, 2.0, -4.4), (0.0, 0.6, 0.0)),
            view("Cockpit", wide, (-2.7, 1.85, -3.4), (0.2, 0.5, -0.1))]


def make_sceneplates(gltf):
    logo = gltf.image("Logo", picture(192, 48, badge))
    summer = gltf.image("Summer", picture(64, 64, sun))
    winter = gltf.image("Winter", picture(64, 64, snowflake))

    def plate(name, image, rect):
        return gltf.node(name, extras={"sceneplate": {"image": image, "rect": rect}})

    corner = [0.86, 0.04, 0.1, 0.15]
    season = gltf.node("Season", children=[plate("Summer", summer, corner),
                                           plate("Winter", winter, corner)], extras={"switch": -1})
    return gltf.node("Sceneplates", children=[plate("Logo", logo, [0.04, 0.05, 0.24, 0.09]), season],
                     extras={"sceneplates": True})


def make_animations(gltf):
    def named(name):
        return next(i for i, node in enumerate(gltf.json["nodes"]) if node["name"] == name)

    quarter = [turned((0, 0, 1), -angle) for angle in (0, 90, 180, 270, 360)]
    for axle, number in (("Rear", 1), ("Front", 3)):
        gltf.animation(f"{axle} Wheels Turn", named(f"Steel Wheel {number}"), "rotation",
                       [0, 0.25, 0.5, 0.75, 1.0], quarter)
    gltf.animation("Drive Up", named("Car"), "translation", [0, 1.0, 2.0],
                   [[-6, 0, 0], [-1.2, 0, 0], [0, 0, 0]])


def main():
    gltf = Gltf("make_sample.py")
    make_materials(gltf)
    car = gltf.node("Car", children=[
        make_body(gltf), make_interior(gltf), make_roof(gltf), make_wheels(gltf),
        *make_mirrors(gltf), *make_doors(gltf)])
    jack = gltf.node("Jack", mesh=gltf.mesh("Jack", (box(-2.6, -2.4, 0.0, 0.3, 0.9, 1.1), "Steel")),
                     extensions={"KHR_node_visibility": {"visible": False}})
    top = [car, jack, *make_lights(gltf), make_surroundings(gltf), *make_cameras(gltf)]
    plates = make_sceneplates(gltf)
    make_animations(gltf)
    gltf.append("scenes", {"name": "Car", "nodes": top + [plates], "extras": {
        "activeCamera": "Front View",
        "viewpoints": [{"name": "Low Front", "camera": "Front View",
                        "translation": [5.4, 0.6, 3.6],
                        "rotation": looking((5.4, 0.6, 3.6), (0.2, 0.6, 0.0))}],
        "animationBlocks": {"Drive": ["Rear Wheels Turn", "Front Wheels Turn", "Drive Up"]}}})
    (HERE / "car").mkdir(exist_ok=True)
    (HERE / "car" / "car.gltf").write_text(gltf.text(), encoding="utf-8")


if __name__ == "__main__":
    main()

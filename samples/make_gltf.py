"""Collects a scene as a glTF file: what the programs that make the sample scenes share."""

import base64
import json
import math
import struct
import zlib


class Gltf:
    """Collects the parts of a glTF file and gives each an index."""

    def __init__(self, generator):
        self.data = bytearray()
        self.json = {
            "asset": {"version": "2.0", "generator": generator},
            "scene": 0, "scenes": [], "nodes": [], "meshes": [], "materials": [], "accessors": [],
            "bufferViews": [], "cameras": [], "animations": [], "images": [], "textures": [],
            "extensionsUsed": ["KHR_lights_punctual", "KHR_materials_variants",
                               "KHR_node_visibility"],
            "extensions": {"KHR_lights_punctual": {"lights": []},
                           "KHR_materials_variants": {"variants": []}},
        }
        self.material_index = {}

    def append(self, kind, item):
        self.json[kind].append(item)
        return len(self.json[kind]) - 1

    def view(self, content, target=None):
        self.data += b"\0" * (-len(self.data) % 4)
        view = {"buffer": 0, "byteOffset": len(self.data), "byteLength": len(content)}
        if target:
            view["target"] = target
        self.data += content
        return self.append("bufferViews", view)

    def accessor(self, rows, kind, bounds=False, target=None):
        rows = [[float(f"{x:.5g}") for x in row] for row in rows]
        content = b"".join(struct.pack(f"<{len(row)}f", *row) for row in rows)
        accessor = {"bufferView": self.view(content, target), "componentType": 5126,
                    "count": len(rows), "type": kind}
        if bounds:
            packed = [struct.unpack(f"<{len(r)}f", struct.pack(f"<{len(r)}f", *r)) for r in rows]
            accessor["min"] = [min(row[i] for row in packed) for i in range(len(rows[0]))]
            accessor["max"] = [max(row[i] for row in packed) for i in range(len(rows[0]))]
        return self.append("accessors", accessor)

    def material(self, name, color, metallic=0.0, roughness=0.5, **more):
        entry = {"name": name, "pbrMetallicRoughness": {
            "baseColorFactor": list(color) + ([1.0] if len(color) == 3 else []),
            "metallicFactor": metallic, "roughnessFactor": roughness}}
        if len(color) == 4 and color[3] < 1.0:
            entry["alphaMode"] = "BLEND"
        entry.update(more)
        self.material_index[name] = self.append("materials", entry)
        return self.material_index[name]

    def primitive(self, shape, material, variants=None):
        primitive = {
            "attributes": {"POSITION": self.accessor(shape.positions, "VEC3", True, 34962),
                           "NORMAL": self.accessor(shape.normals, "VEC3", False, 34962)},
            "material": self.material_index[material], "mode": 4}
        if variants:
            primitive["extensions"] = {"KHR_materials_variants": {"mappings": [
                {"material": self.material_index[name], "variants": indices}
                for name, indices in variants]}}
        return primitive

    def mesh(self, name, *parts):
        """Parts are (shape, material name) or (shape, material name, variants)."""
        return self.append("meshes", {"name": name,
                                      "primitives": [self.primitive(*part) for part in parts]})

    def node(self, name, **fields):
        return self.append("nodes", {"name": name, **fields})

    def light(self, name, kind, color, intensity, **more):
        lights = self.json["extensions"]["KHR_lights_punctual"]["lights"]
        lights.append({"name": name, "type": kind, "color": color, "intensity": intensity, **more})
        return {"KHR_lights_punctual": {"light": len(lights) - 1}}

    def image(self, name, pixels):
        return self.append("images", {"name": name, "mimeType": "image/png",
                                      "bufferView": self.view(png(pixels))})

    def animation(self, name, node, path, times, values):
        kind = "VEC4" if path == "rotation" else "VEC3"
        sampler = {"input": self.accessor([[t] for t in times], "SCALAR", True),
                   "output": self.accessor(values, kind), "interpolation": "LINEAR"}
        self.append("animations", {"name": name, "samplers": [sampler], "channels": [
            {"sampler": 0, "target": {"node": node, "path": path}}]})

    def text(self):
        uri = "data:application/octet-stream;base64," + base64.b64encode(self.data).decode()
        self.json["buffers"] = [{"byteLength": len(self.data), "uri": uri}]
        for empty in [key for key, value in self.json.items() if value == []]:
            del self.json[empty]
        return json.dumps(self.json, indent=1) + "\n"


def png(rows):
    """Rows of (r, g, b, a) bytes as a PNG file."""

    def chunk(kind, content):
        body = kind + content
        return struct.pack(">I", len(content)) + body + struct.pack(">I", zlib.crc32(body))

    raw = b"".join(b"\0" + bytes(v for pixel in row for v in pixel) for row in rows)
    size = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", size) + chunk(b"IDAT", zlib.compress(raw, 9)) +
            chunk(b"IEND", b""))


def turned(axis, degrees):
    half = math.radians(degrees) / 2
    return [round(a * math.sin(half), 6) for a in axis] + [round(math.cos(half), 6)]


def looking(eye, target):
    """The rotation of a camera (it looks along -z, y up) from one point to another."""
    f = [target[i] - eye[i] for i in range(3)]
    yaw = math.atan2(-f[0], -f[2])
    pitch = math.atan2(f[1], math.hypot(f[0], f[2]))
    cy, sy, cp, sp = (math.cos(yaw / 2), math.sin(yaw / 2), math.cos(pitch / 2),
                      math.sin(pitch / 2))
    return [round(v, 6) for v in (cy * sp, sy * cp, -sy * sp, cy * cp)]

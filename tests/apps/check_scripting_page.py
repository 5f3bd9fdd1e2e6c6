"""Runs the recipes of docs/scripting.md as they stand there, on the sample, and checks what they did.

Usage: check_scripting_page.py EXECUTABLE ROOT. Exits with 1 where a recipe did something else than
it promises, and where the page has more or fewer recipes than are checked here.
"""

import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

RECIPE = re.compile(r"^### (.*?)\n\n```python\n(.*?)^```\n", re.M | re.S)


class Folder:
    """A folder with the sample, in which recipes run."""

    def __init__(self, path, executable, root):
        self.path = Path(path)
        self.executable = executable
        shutil.copy(root / "samples" / "car" / "car.gltf", self.path)
        shutil.copy(root / "samples" / "car" / "car.variants.xml", self.path / "car.xml")

    def run(self, recipe, *arguments, document="car.xml"):
        (self.path / "recipe.py").write_text(recipe, encoding="utf-8")
        done = subprocess.run([self.executable, "run", "car.gltf", document, "recipe.py",
                               *arguments], cwd=self.path, capture_output=True, text=True)
        return done.returncode, done.stdout, done.stderr

    def groups(self, document):
        """Name to a list of the sets' names, as the document has them."""
        tree = ElementTree.parse(self.path / document).getroot()
        return {group.get("name"): [one.get("name") for one in group.findall("VariantSet")]
                for group in tree.findall("VariantGroup")}

    def states(self, document, name):
        """(kind, variant) to the state that a set has for it."""
        tree = ElementTree.parse(self.path / document).getroot()
        found = [one for one in tree.iter("VariantSet") if one.get("name") == name]
        assert len(found) == 1, f"{document} has {len(found)} sets named {name}"
        return {(item.tag, item.get("ref")): item.get("state") for item in found[0]
                if item.get("state") is not None}


def expect(what, found, wanted):
    assert found == wanted, f"{what}: {found!r} instead of {wanted!r}"


def check_colours(folder, recipe):
    names = ["Paint Red", "Paint Blue", "Paint Silver"]
    expect("answer", folder.run(recipe), (0, f"{names}\n", ""))
    expect("group", folder.groups("paints.xml")["Paints"], names)
    for name in names:
        wanted = {("MaterialVariantRef", "Paint"): name.split()[1]}
        expect(name, folder.states("paints.xml", name), wanted)


def check_arrangements(folder, recipe):
    expect("answer", folder.run(recipe), (0, "['Town', 'Coast']\n", ""))
    expect("group", folder.groups("arrangements.xml")["Arrangements"], ["Town", "Coast"])
    for name, roof, paint in (("Town", "Hardtop", "Red"), ("Coast", "Open Top", "Blue")):
        states = folder.states("arrangements.xml", name)
        found = states["NodeVariantRef", "Roof"], states["MaterialVariantRef", "Paint"]
        expect(name, found, (roof, paint))


def check_missing(folder, recipe):
    expect("sound document", folder.run(recipe), (0, "", ""))
    text = (folder.path / "car.xml").read_text(encoding="utf-8")
    broken = text.replace('<NodeVariant name="Roof"', '<NodeVariant name="Lid"')
    (folder.path / "broken.xml").write_text(broken, encoding="utf-8")
    code, printed, errors = folder.run(recipe, document="broken.xml")
    wanted = [one for one in folder.groups("car.xml").values() for one in one
              if ("NodeVariantRef", "Roof") in folder.states("car.xml", one)]
    found = re.findall(r"^(.*): there is no node variant Roof$", printed, re.M)
    assert len(wanted) > 1, "no set of the sample names the roof"
    expect("broken document", (code, sorted(found), errors), (1, sorted(wanted), ""))


def check_sheet(folder, recipe):
    code, printed, errors = folder.run(recipe, "shown")
    expect("answer", (code, printed), (0, "10 pictures\n"))
    assert "1 script was held back" in errors, errors
    pictures = [f"{number:03}.jpg" for number in range(10)]
    made = sorted(path.name for path in (folder.path / "shown").iterdir())
    expect("files", made, [*pictures, "index.html"])
    contents = {(folder.path / "shown" / name).read_bytes() for name in pictures}
    assert all(content.startswith(b"\xff\xd8") for content in contents), "not all are JPEG"
    assert len(contents) > 5, f"only {len(contents)} pictures differ"
    page = (folder.path / "shown" / "index.html").read_text(encoding="utf-8")
    expect("page", re.findall(r'src="(.*?)"', page), pictures)
    assert "<figcaption>Summer Trip</figcaption>" in page, "the names are missing"


def check_regrouping(folder, recipe):
    groups = {"Models": ["Base Model", "Sport", "Family"], "Seasons": ["Night Drive"],
              "Presentation": ["Doors Open", "Next Colour", "Engine Bay"],
              "Trips": ["Summer", "Winter"]}
    expect("answer", folder.run(recipe), (0, f"{groups}\n", ""))
    expect("document", folder.groups("regrouped.xml"), groups)


CHECKS = {
    "A set per colour of a material": check_colours,
    "Capture a list of arrangements": check_arrangements,
    "Find sets that name missing variants": check_missing,
    "Render a contact sheet": check_sheet,
    "Rename and regroup by pattern": check_regrouping,
}


def main():
    executable, root = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    page = (root / "docs" / "scripting.md").read_text(encoding="utf-8")
    recipes = dict(RECIPE.findall(page))
    faults = []
    if list(recipes) != list(CHECKS) or page.count("```python") != len(CHECKS):
        faults.append(f"the page has the recipes {list(recipes)}")
    for name in CHECKS.keys() & recipes.keys():
        with tempfile.TemporaryDirectory() as path:
            try:
                CHECKS[name](Folder(path, executable, root), recipes[name])
            except (AssertionError, KeyError, OSError) as fault:
                faults.append(f"{name}: {type(fault).__name__}: {fault}")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

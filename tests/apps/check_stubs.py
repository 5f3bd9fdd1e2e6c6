"""Holds the stubs for editors to the modules and names that scripts really find, both ways.

Usage: check_stubs.py EXECUTABLE ROOT. Names, parameters with their types, and for the module
"variants" all of each signature must agree. Exits with 1 where something differs.
"""

import ast
import json
import re
import subprocess
import sys
from pathlib import Path

# Runs inside the executable and tells what is there. A function that C++ made tells the names and
# types of its parameters where arguments do not fit: the host's own in Python's words, as
# "name(path: str) cannot take (int)", those of the library's modules in C++'s.
PROBE = r'''
import inspect, json, re, sys
import kuVariants as functions, kuVariantSetPtr as sets
stub = sys.argv[1]
begun = {name: value for name, value in list(globals().items()) if not name.startswith("__")
         and name not in ("inspect", "json", "re", "sys", "functions", "sets", "stub")}

def fails(function):
    try:
        function(*[object()] * 20)
    except TypeError as error:
        return str(error)

def overloads(function, own=""):
    """Of the host's own methods, "own" stands for the parameter that they do not tell."""
    told, host, _ = fails(function).partition(" cannot take ")
    lines = told.split(" or ") if host else told.split("C++ signature:\n")[1].splitlines()
    found = [line.strip().split("(", 1)[1].rsplit(")", 1)[0] for line in lines]
    if not host:
        return found
    return [own + re.sub(r"(\w+): (\w+)", r"\2 \1", parameters) for parameters in found]

def members(kind):
    own = {name: value for name, value in vars(kind).items()
           if name not in ("__instance_size__", "__module__") and not hasattr(object, name)}
    found = {name: None if isinstance(value, property) else overloads(value, "self, ")
             for name, value in own.items()}
    return {**found, "__init__": overloads(kind.__init__, "self, ")}

def described(names):
    return {name: members(value) if inspect.isclass(value) else
            "module" if inspect.ismodule(value) else
            "bool" if isinstance(value, bool) else overloads(value)
            for name, value in names.items() if not name.startswith("__")}

def signatures(names):
    return {name: str(inspect.signature(value)) for name, value in names.items()
            if inspect.isfunction(value) and not name.startswith("_")}

stubbed = {}
with open(stub, encoding="utf-8") as file:
    exec(compile(file.read(), stub, "exec"), stubbed)
everything = {name for name in vars(variants) if not name.startswith("_")}
print(json.dumps({
    "globals": described(begun), "kuVariants": described(vars(functions)),
    "kuVariantSetPtr": described(vars(sets)), "variants": signatures(vars(variants)),
    "stub": signatures(stubbed), "listed": sorted(variants.__all__), "all": sorted(everything),
    "error": [base.__name__ for base in variants.UnknownName.__mro__],
    "stub error": [base.__name__ for base in stubbed["UnknownName"].__mro__]}))
'''

TYPES = {"char const*": "str", "int": "int", "long": "int", "bool": "bool", "float": "float",
         "osg::Vector<float, 3ul>": "Vec3f", "osg::Point<float, 3ul>": "Pnt3f"}


def split_at_commas(text):
    """The parts between the commas that stand in no angle brackets."""
    flat = re.sub(r"std::\S*basic_string<.*?> >", "char const*", text)
    parts = re.split(r", (?![^<]*>)", flat)
    return [part for part in parts if part and part != "void"]


def real_parameter(text):
    """(type, name) of a parameter in C++'s words; None for the name that it has not."""
    text = text.replace(" {lvalue}", "").replace("&", "")
    for known, python in TYPES.items():
        if text == known or text.startswith(known + " "):
            return python, text[len(known) + 1:] or None
    kind, _, name = text.partition(" ")
    return kind, name or None


def real_overloads(texts, is_member):
    lists = [[real_parameter(part) for part in split_at_commas(text)] for text in texts]
    return {tuple(parameters[is_member:]) for parameters in lists}


def stub_parameter(argument):
    name = None if argument.arg.startswith("__") else argument.arg
    return argument.annotation.id, name


def stub_functions(body, is_member):
    """Name to a set of parameter lists; None for a plain attribute."""
    found = {}
    for item in body:
        if isinstance(item, ast.FunctionDef):
            arguments = item.args.args[is_member:]
            overload = tuple(stub_parameter(argument) for argument in arguments)
            found.setdefault(item.name, set()).add(overload)
        elif isinstance(item, ast.AnnAssign):
            found[item.target.id] = None
    return found


class Comparison:
    def __init__(self):
        self.faults = []

    def names(self, place, real, stub):
        self.faults += [f"{place}: the stub lacks {name}" for name in sorted(set(real) - set(stub))]
        self.faults += [f"{place}: the stub has {name}, which is not there"
                        for name in sorted(set(stub) - set(real))]
        return sorted(set(real) & set(stub))

    def functions(self, place, real, stub, is_member):
        for name in self.names(place, real, stub):
            there = None if real[name] is None else real_overloads(real[name], is_member)
            if there != stub[name]:
                self.faults.append(f"{place}: {name} is {there}, in the stub {stub[name]}")

    def module(self, place, real, path):
        """A stub with functions and classes; what it imports under the same name counts too."""
        tree = ast.parse(path.read_text(encoding="utf-8")).body
        imported = {alias.asname for item in tree if isinstance(item, (ast.Import, ast.ImportFrom))
                    for alias in item.names if alias.asname == alias.name}
        classes = {item.name: item for item in tree if isinstance(item, ast.ClassDef)}
        plain = {item.target.id for item in tree if isinstance(item, ast.AnnAssign)}
        functions = stub_functions(tree, 0)
        self.names(place, real, imported | set(classes) | set(functions))
        for name in classes.keys() & real.keys():
            self.functions(f"{place}.{name}", real[name],
                           stub_functions(classes[name].body, 1), 1)
        here = {name for name in functions if name in real and name not in plain}
        self.functions(place, {name: real[name] for name in here},
                       {name: functions[name] for name in here}, 0)

    def signatures(self, real, stub):
        for name in self.names("variants", real, stub):
            if real[name] != stub[name]:
                self.faults.append(f"variants: {name}{real[name]}, in the stub {stub[name]}")


def probe(executable, root):
    car = root / "samples" / "car"
    done = subprocess.run(
        [executable, "run", car / "car.gltf", car / "car.variants.xml", "-",
         root / "docs" / "stubs" / "variants.pyi"],
        input=PROBE, check=True, stdout=subprocess.PIPE, text=True)
    return json.loads(done.stdout)


def main():
    executable, root = sys.argv[1], Path(sys.argv[2])
    stubs = root / "docs" / "stubs"
    real = probe(executable, root)
    comparison = Comparison()
    comparison.module("globals", real["globals"], stubs / "__builtins__.pyi")
    comparison.module("kuVariants", real["kuVariants"], stubs / "kuVariants.pyi")
    comparison.module("kuVariantSetPtr", real["kuVariantSetPtr"], stubs / "kuVariantSetPtr.pyi")
    comparison.signatures(real["variants"], real["stub"])
    faults = comparison.faults
    # A star import would put the function "variants" in the place of the module.
    listed = [name for name in real["all"] if name != "variants"]
    if real["listed"] != listed or set(real["all"]) != {*real["variants"], "UnknownName"}:
        faults.append(f"variants: {real['listed']} are listed, {real['all']} are there")
    if real["error"] != real["stub error"]:
        faults.append(f"variants: UnknownName is {real['error']}, in the stub {real['stub error']}")
    if len(real["variants"]) < 20 or len(real["globals"]) < 30:
        faults.append("there is less to compare than there should be")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

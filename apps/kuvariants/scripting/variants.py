"""Variant sets and groups, variants and their states, documents and pictures.

Everything goes by name. A kind of variants is "node", "material", "transform", "light" or
"overlay". An unknown name raises UnknownName, which is a LookupError, with the nearest names; an
argument that cannot be taken raises a ValueError or a TypeError, and a file that cannot be read or
written an OSError. All of it is for the main thread alone: another one gets a RuntimeError.

variants.variants(kind) returns the names of all variants of a kind. It is listed here, since
"from variants import *" leaves it out.
"""

import functools as _functools
import operator as _operator
import os as _os
import typing as _typing

import _variants
import kuVariantSetPtr as _sets

__all__ = ["UnknownName"]

_PathLike = _typing.Union[str, bytes, _os.PathLike]

UnknownName = _variants.UnknownName


def _public(function):
    """Makes a function part of the module. No thread but the main one gets any further."""

    @_functools.wraps(function)
    def checked(*arguments, **keywords):
        if not _variants.is_main_thread():
            raise RuntimeError(f"variants.{function.__name__} is for the main thread alone")
        return function(*arguments, **keywords)

    __all__.append(function.__name__)
    return checked


def _text(value, what):
    """A text that can stand in a document."""
    if not isinstance(value, str):
        raise TypeError(f"{what} must be str, not {type(value).__name__}")
    if "\0" in value:
        raise ValueError(f"{what} has a NUL character: {value!a}")
    if any("\ud800" <= character <= "\udfff" for character in value):
        raise ValueError(f"{what} has half a surrogate pair: {value!a}")
    return value


def _new_name(value, what):
    if not _text(value, what):
        raise ValueError(f"{what} is empty")
    return value


def _group(value):
    return None if value is None else _text(value, "group")


def _path(value):
    path = _os.fsencode(value)
    if b"\0" in path:
        raise ValueError(f"path has a NUL character: {value!a}")
    return path


def _number(value, what, most):
    number = _operator.index(value)
    if not 1 <= number <= most:
        raise ValueError(f"{what} is from 1 to {most}, not {number}")
    return number


@_public
def sets() -> _typing.List[str]:
    """Return the names of all sets, in the order of their creation."""
    return _variants.sets()


@_public
def create_set(name: str, group: _typing.Optional[str] = None) -> _sets.kuVariantSetPtr:
    """Make an empty set, in a group or in none, and return it.

    It must not be used any more once the set is no longer there: removed, cleared with all others,
    or replaced by one of its name that a document brings. A set's own script may do that too.
    """
    return _variants.create_set(_new_name(name, "name"), _group(group))


@_public
def find_set(name: str) -> _typing.Optional[_sets.kuVariantSetPtr]:
    """Return the set of that name, or None.

    It must not be used any more once the set is no longer there: removed, cleared with all others,
    or replaced by one of its name that a document brings. A set's own script may do that too.
    """
    return _variants.find_set(_text(name, "name"))


@_public
def rename_set(name: str, new_name: str) -> None:
    """Give a set another name."""
    _variants.rename_set(_text(name, "name"), _new_name(new_name, "new_name"))


@_public
def remove_set(name: str) -> None:
    """Remove a set."""
    _variants.remove_set(_text(name, "name"))


@_public
def select_set(name: str, skip_viewpoint: bool = False) -> None:
    """Select a set, as the command "select" does.

    With skip_viewpoint the camera is left alone.
    """
    _variants.select_set(_text(name, "name"), bool(skip_viewpoint))


@_public
def group_of(name: str) -> _typing.Optional[str]:
    """Return the name of a set's group, or None."""
    return _variants.group_of(_text(name, "name"))


@_public
def set_group(name: str, group: _typing.Optional[str]) -> None:
    """Put a set at the end of a group, or with None into no group.

    A set that is in that group already stays at its place.
    """
    _variants.set_group(_text(name, "name"), _group(group))


@_public
def states(name: str) -> _typing.Dict[str, _typing.Dict[str, str]]:
    """Return what a set holds: a dict of kinds, each a dict of variants and their states."""
    return _variants.states(_text(name, "name"))


@_public
def set_state(name: str, kind: str, variant: str, state: str) -> None:
    """Enter a state for a variant into a set, in the place of an earlier one.

    Neither the variant nor the state has to exist.
    """
    _variants.set_state(_text(name, "name"), _text(kind, "kind"), _new_name(variant, "variant"),
                        _text(state, "state"))


@_public
def remove_state(name: str, kind: str, variant: str) -> None:
    """Take the state for a variant out of a set; nothing happens where it has none."""
    _variants.remove_state(_text(name, "name"), _text(kind, "kind"), _text(variant, "variant"))


@_public
def groups() -> _typing.Dict[str, _typing.List[str]]:
    """Return all groups in the order of their creation: a dict of names and lists of sets."""
    return _variants.groups()


@_public
def create_group(name: str, visible: bool = True) -> None:
    """Make an empty group."""
    _variants.create_group(_new_name(name, "name"), bool(visible))


@_public
def rename_group(name: str, new_name: str) -> None:
    """Give a group another name."""
    _variants.rename_group(_text(name, "name"), _new_name(new_name, "new_name"))


@_public
def remove_group(name: str) -> None:
    """Remove a group; its sets stay, in no group."""
    _variants.remove_group(_text(name, "name"))


@_public
def variants(kind: str) -> _typing.List[str]:
    """Return the names of all variants of a kind, in the order of their creation."""
    return _variants.variants(_text(kind, "kind"))


# A star import would put the function in the place of the module.
__all__.remove("variants")


@_public
def options(kind: str, variant: str) -> _typing.List[str]:
    """Return the states and steps that a variant lists."""
    return _variants.options(_text(kind, "kind"), _text(variant, "variant"))


@_public
def state(kind: str, variant: str) -> str:
    """Return the state in which a variant is now; empty where that cannot be told."""
    return _variants.state(_text(kind, "kind"), _text(variant, "variant"))


@_public
def select_state(kind: str, variant: str, state: str) -> None:
    """Put a variant into a state, which may be a step such as "!Next"."""
    _variants.select_state(_text(kind, "kind"), _text(variant, "variant"), _text(state, "state"))


@_public
def read_document(path: _PathLike) -> None:
    """Read a variants document.

    What it holds joins what is there; a group or a set of the same name is replaced. A document
    that is not well-formed, or is larger than 1 GiB, raises a ValueError and changes nothing.
    """
    name = _path(path)
    with open(_os.fsdecode(name), "rb") as file:
        _variants.check_document_size(_os.fstat(file.fileno()).st_size, name)
        content = file.read()
    _variants.read_document(content, name)


@_public
def write_document(path: _PathLike) -> None:
    """Write all variants, sets and groups to a variants document."""
    _variants.write_document(_path(path))


@_public
def clear() -> None:
    """Remove all variants, sets and groups."""
    _variants.clear()


@_public
def save_scene(path: _PathLike) -> None:
    """Write the scene as it is now: as .glb where the name ends so, otherwise as .gltf."""
    _variants.save_scene(_path(path))


@_public
def render(path: _PathLike, width: int = 800, height: int = 600, samples: int = 32) -> None:
    """Write a picture of the scene as it is now: JPEG where the name ends so, otherwise PNG.

    Width and height are pixels, at most 16384. Samples are rays through each pixel, at most 65536:
    more look better and take longer.
    """
    _variants.render(_path(path), _number(width, "width", _variants.MOST_PIXELS),
                     _number(height, "height", _variants.MOST_PIXELS),
                     _number(samples, "samples", _variants.MOST_SAMPLES))

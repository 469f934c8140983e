"""The component's classes, made from its description of itself when the package is imported."""

from __future__ import annotations

import enum
import inspect
import json
import operator
from abc import ABCMeta
from collections.abc import Iterator, Sequence
from typing import Any

from . import _native
from ._native import Error, Object, Record

Row = dict[str, Any]

_NOT_THERE = 5
DESCRIPTION: Row = json.loads(_native.describe())
_CLASSES: dict[str, Row] = {row["name"]: row for row in DESCRIPTION["classes"]}
_DEFAULTS: dict[str, Any] = {"True": True, "False": False, "": ""}


class Property(_native.Property):
    """A property, as an attribute."""


class Operation(_native.Operation):
    """An operation, or a property with arguments that is only read: a method."""


class Chosen:
    """A property of which an argument chooses the value: `of(key)` or `of[key]`, `of[key] = value`."""

    __slots__ = ("_property", "_owner")

    def __init__(self, chosen: Indexed, owner: Object) -> None:
        self._property = chosen
        self._owner = owner

    def __call__(self, *arguments: Any, **named: Any) -> Any:
        return self._property(self._owner, *arguments, **named)

    def __getitem__(self, key: Any) -> Any:
        return self._property(self._owner, key)

    def __setitem__(self, key: Any, value: Any) -> None:
        self._property.put(self._owner, key, value)


class Indexed(_native.Operation):
    """A property with an argument that is written too."""

    def __get__(self, owner: Object | None, kind: type | None = None) -> Any:
        return self if owner is None else Chosen(self, owner)


class Items(Object, Sequence[Any], metaclass=ABCMeta):
    """A collection: a sequence from 0 for Python, and by key where its items have keys."""

    __slots__ = ()
    _keyed: bool
    _item: str
    Item: Any
    Count: Any

    def __len__(self) -> int:
        count = self.Count
        return int(count() if callable(count) else count)

    def __getitem__(self, key: Any) -> Any:
        if isinstance(key, slice):
            return [self[at] for at in range(*key.indices(len(self)))]
        if isinstance(key, str) and self._keyed:
            return self._at(key, KeyError)
        at = operator.index(key)
        return self._at(at + 1 if at >= 0 else at + 1 + len(self), IndexError)

    def _at(self, index: int | str, missing: type[LookupError]) -> Any:
        try:
            return self.Item(index)
        except Error as error:
            if error.number != _NOT_THERE:
                raise
            raise missing(error.description) from None

    def __contains__(self, sought: object) -> bool:
        if not (isinstance(sought, str) and self._keyed):
            return super().__contains__(sought)
        try:
            return self[sought] is not None
        except KeyError:
            return False

    def __iter__(self) -> Iterator[Any]:
        kind = _native.types[self._item] if self._item in _native.types else Object
        if issubclass(kind, Record):
            return _native.records(self, tuple(row[1] for row in kind._members), kind)  # type: ignore[attr-defined]
        return super().__iter__()


class Table(Items):
    """A collection whose items have only texts."""

    __slots__ = ()
    #: the members of the items, in the order of rows()
    fields: tuple[str, ...]
    _ids: dict[str, int]

    def rows(self, *fields: str) -> list[tuple[str, ...]]:
        """All items as tuples of these members, or of all: for csv.writer and pandas.DataFrame."""
        unknown = set(fields) - set(self._ids)
        if unknown:
            raise AttributeError(f"no member of the items is called {min(unknown)}")
        return list(_native.records(self, tuple(self._ids[name] for name in fields or self.fields), None))

    def columns(self, *fields: str) -> dict[str, list[str]]:
        """The same by column."""
        rows = self.rows(*fields)
        return {name: [row[at] for row in rows] for at, name in enumerate(fields or self.fields)}


class Summary(Object):
    """A response."""

    __slots__ = ()
    _summary: tuple[str, ...]

    def summary(self) -> dict[str, Any]:
        """Every value of the response by name, without the reply's text, its page and its lines."""
        return {name: getattr(self, name) for name in self._summary}


class Disposable(Object):
    """A facade: `with ZRCreditBureau() as bureau` disposes of it in the end."""

    __slots__ = ()
    Dispose: Any

    def __enter__(self) -> Disposable:
        return self

    def __exit__(self, *error: object) -> None:
        self.Dispose()


def _default(row: Row) -> Any:
    if not row["optional"]:
        return inspect.Parameter.empty
    default = row["default"]
    return _DEFAULTS[default] if default in _DEFAULTS else int(default)


def _signature(member: Row) -> inspect.Signature:
    kind = inspect.Parameter.POSITIONAL_OR_KEYWORD
    rows = [inspect.Parameter("self", inspect.Parameter.POSITIONAL_ONLY)]
    rows += [inspect.Parameter(row["name"], kind, default=_default(row)) for row in member["arguments"]]
    return inspect.Signature(rows)


def _help(member: Row) -> str:
    lines = [member["meaning"]]
    lines += [f"{row['name']}: {row['meaning']}" for row in member["arguments"] if row["meaning"]]
    if member.get("raises"):
        lines.append("Raises Error " + ", ".join(map(str, member["raises"])) + ".")
    return "\n".join(lines)


def _is_method(member: Row) -> bool:
    return member["kind"] == "operation" or bool(member["arguments"])


def _member(owner: str, member: Row) -> Property | Operation | Indexed:
    kind: type[Property | Operation | Indexed] = Property
    if _is_method(member):
        kind = Indexed if member["kind"] == "read-write" else Operation
    arguments = tuple(
        (row["name"], row["type"], row.get("of"), row["optional"]) for row in member["arguments"]
    )
    made = kind(
        f"{owner}.{member['name']}", member["id"], member["type"], member.get("of"),
        member["kind"] == "operation", arguments,
    )
    vars(made).update(__name__=member["name"], __qualname__=f"{owner}.{member['name']}",
                      __doc__=_help(member), __module__=__package__)
    if _is_method(member):
        vars(made)["__signature__"] = _signature(member)
    return made


def _plain(row: Row) -> list[Row]:
    """The properties that are values."""
    return [one for one in row["members"]
            if one["kind"] in ("read", "read-write") and not one["arguments"]
            and one["type"] not in ("object", "enumerator")]


def _only_texts(name: str) -> bool:
    return name in _CLASSES and all(
        one["type"] == "text" and not one["arguments"] for one in _CLASSES[name]["members"]
    )


def _record(row: Row) -> type[Record]:
    members = tuple((one["name"], one["id"], one["meaning"]) for one in row["members"])
    made = _native.record_class(f"{__package__}.{row['name']}", row["meaning"], members)
    setattr(made, "__match_args__", tuple(name for name, _, _ in members))
    return made


def _class(row: Row) -> type:
    name = row["name"]
    if _only_texts(name) and all(one["kind"] == "read" for one in row["members"]):
        return _record(row)
    space: Row = {one["name"]: _member(name, one) for one in row["members"] if one["name"] != "NewEnum"}
    space.update(__doc__=row["meaning"], __module__=__package__, __slots__=())
    base: type = Object
    if "Item" in space:
        item = next(one for one in row["members"] if one["name"] == "Item")
        base = Items
        space.update(_keyed=item["arguments"][0]["type"] == "index", _item=item["of"])
        if _only_texts(item["of"]):
            base = Table
            space["_ids"] = {one["name"]: one["id"] for one in _CLASSES[item["of"]]["members"]}
            space["fields"] = tuple(space["_ids"])
    elif name == "Response":
        base = Summary
        space["_summary"] = tuple(one["name"] for one in _plain(row)
                                  if one["name"] not in ("ResponseXML", "ResponseHTML"))
    elif row["creatable"]:
        space["_creates"] = name
        base = Disposable if "Dispose" in space else Object
    return type(base)(name, (base,), space)


def _enumeration(row: Row) -> type[enum.IntEnum]:
    made = enum.IntEnum(row["name"], {one["name"]: one["value"] for one in row["values"]},  # type: ignore[misc]
                        module=__package__)
    made.__doc__ = row.get("meaning")
    for one in row["values"]:
        made[one["name"]].__doc__ = one.get("meaning")
    return made


for _row in DESCRIPTION["enumerations"]:
    _native.types[_row["name"]] = _enumeration(_row)
for _row in DESCRIPTION["classes"]:
    _native.types[_row["name"]] = _class(_row)

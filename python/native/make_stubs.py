"""Writes the package's type stubs from the component's description: make_stubs.py FILE."""

from __future__ import annotations

import pathlib
import sys
from typing import Any

from zrcreditbureau import DESCRIPTION

Row = dict[str, Any]

HEAD = '''# Made by make_stubs.py; help() has what the members mean.
import datetime
import enum
from collections.abc import Iterator, Sequence
from decimal import Decimal
from types import TracebackType
from typing import Any, Generic, TypeVar, overload

_Item = TypeVar("_Item")
_Value = TypeVar("_Value")
_Row = dict[str, Any]

__version__: str
DESCRIPTION: _Row

class Error(Exception):
    number: int
    source: str
    description: str

class Object: ...

class _Chosen(Generic[_Value]):
    def __call__(self, OptionId: str) -> _Value: ...
    def __getitem__(self, OptionId: str) -> _Value: ...
    def __setitem__(self, OptionId: str, value: _Value) -> None: ...

class _Items(Object, Sequence[_Item]):
    def __len__(self) -> int: ...
    @overload
    def __getitem__(self, at: int) -> _Item: ...
    @overload
    def __getitem__(self, at: slice) -> list[_Item]: ...

class _Keyed(Object, Sequence[_Item]):
    def __len__(self) -> int: ...
    @overload
    def __getitem__(self, at: int | str) -> _Item: ...
    @overload
    def __getitem__(self, at: slice) -> list[_Item]: ...

class _Table(Object):
    fields: tuple[str, ...]
    def rows(self, *fields: str) -> list[tuple[str, ...]]: ...
    def columns(self, *fields: str) -> dict[str, list[str]]: ...
'''

GIVEN = {"nothing": "None", "text": "str", "boolean": "bool", "int16": "int", "int32": "int",
         "currency": "Decimal", "date": "datetime.datetime",
         "date-or-null": "datetime.datetime | str | None", "index": "int | str"}
TAKEN = {**GIVEN, "currency": "Decimal | int", "date": "datetime.date",
         "date-or-null": "datetime.date | str | None"}
CLASSES = {row["name"]: row for row in DESCRIPTION["classes"]}
SERVICES = " | ".join(name for name in CLASSES if name.startswith("Service") and name != "Services")

EXTRAS = {
    "ZRCreditBureau": '''    def __enter__(self) -> ZRCreditBureau: ...
    def __exit__(self, kind: type[BaseException] | None, error: BaseException | None,
                 trace: TracebackType | None) -> None: ...
''',
    "Response": "    def summary(self) -> dict[str, Any]: ...\n",
}


def name_of(row: Row, taken: bool = False) -> str:
    """The Python type of a member or an argument."""
    if row["type"] not in ("object", "enumeration"):
        return (TAKEN if taken else GIVEN)[row["type"]]
    of: str = SERVICES if row["of"] == "Object" else row["of"]
    return f"{of} | None" if row.get("mayBeNone") else of


def default_of(row: Row) -> str:
    return " = ..." if row["optional"] else ""


def method(member: Row) -> str:
    rows = ["self"]
    rows += [f"{row['name']}: {name_of(row, True)}{default_of(row)}" for row in member["arguments"]]
    return f"    def {member['name']}({', '.join(rows)}) -> {name_of(member)}: ...\n"


def attribute(member: Row) -> str:
    name, given, taken = member["name"], name_of(member), name_of(member, True)
    if member["kind"] == "read":
        return f"    @property\n    def {name}(self) -> {given}: ...\n"
    if member["kind"] == "write":
        given = "Any"
    elif given == taken:
        return f"    {name}: {given}\n"
    return (f"    @property\n    def {name}(self) -> {given}: ...\n"
            f"    @{name}.setter\n    def {name}(self, value: {taken}) -> None: ...\n")


def stub(member: Row) -> str:
    if member["name"] == "NewEnum":
        return ""
    if member["arguments"] and member["kind"] == "read-write":
        return f"    @property\n    def {member['name']}(self) -> _Chosen[{name_of(member)}]: ...\n"
    return method(member) if member["kind"] == "operation" or member["arguments"] else attribute(member)


def bases(row: Row) -> str:
    """What a class is besides what its members say."""
    item = next((one for one in row["members"] if one["name"] == "Item"), None)
    if item is None:
        return "Object"
    base = "_Keyed" if item["arguments"][0]["type"] == "index" else "_Items"
    of = CLASSES.get(item["of"])
    table = of is not None and all(one["type"] == "text" for one in of["members"])
    return f"{base}[{name_of(item)}]" + (", _Table" if table else "")


def stubs() -> str:
    parts = [HEAD]
    for row in DESCRIPTION["enumerations"]:
        values = "".join(f"    {one['name']} = {one['value']}\n" for one in row["values"])
        parts.append(f"class {row['name']}(enum.IntEnum):\n{values}")
    for row in DESCRIPTION["classes"]:
        body = "".join(stub(member) for member in row["members"]) + EXTRAS.get(row["name"], "")
        parts.append(f"class {row['name']}({bases(row)}):\n{body}")
    return "\n".join(parts)


if __name__ == "__main__":
    pathlib.Path(sys.argv[1]).write_text(stubs(), encoding="utf-8")

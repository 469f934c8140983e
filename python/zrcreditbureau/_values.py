"""How money and dates are given to the component."""

from __future__ import annotations

import datetime
from decimal import Decimal


def units_of_money(amount: Decimal | int) -> int:
    """An amount as a count of ten-thousandths; one that is no such count is refused."""
    numerator, denominator = amount.as_integer_ratio()
    units, rest = divmod(numerator * 10_000, denominator)
    if rest:
        raise ValueError("an amount has at most four decimals: quantize it first")
    if not -(2**63) <= units < 2**63:
        raise OverflowError("an amount is out of the component's range")
    return units


def parts_of_date(day: datetime.date) -> tuple[int, ...]:
    """Year, month, day, hour, minute and second; the local time is what the component knows."""
    if isinstance(day, datetime.datetime) and day.tzinfo is not None:
        raise ValueError("a date and time with a time zone: make it a local one without first")
    return day.timetuple()[:6]

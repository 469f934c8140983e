"""Credit-bureau enquiries of Australia and New Zealand, and the bureau's replies, in this process.

    import zrcreditbureau
    bureau = zrcreditbureau.ZRCreditBureau()
    bureau.Initialise("AU")

Classes and members are called as everywhere: help(zrcreditbureau.Request). Money is decimal.Decimal,
dates are datetime.datetime, what is none is None; what the component raises is zrcreditbureau.Error.
"""

from ._interface import DESCRIPTION
from ._native import Error, Object, types, version

__version__ = version()
globals().update(types)
__all__ = ["DESCRIPTION", "Error", "Object", *types]

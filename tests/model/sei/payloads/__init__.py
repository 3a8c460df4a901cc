"""The syntax of SEI payloads, clauses D.2, F.14.2, G.14.2 and I.14.2, by what they are about."""

from . import (
    colour,
    display,
    layers,
    nests,
    pictures,
    sequences,
    spheres,
    tiles,
    timing,
    user_data,
    views,
)
from .table import PAYLOADS

__all__ = ["PAYLOADS"]

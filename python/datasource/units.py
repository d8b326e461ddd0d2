"""The units a read is given in, and the kinds a file can be of."""

RAW = "raw"
VOLTS = "volts"
METRIC = "metric"
FORCE = "force"

# The part of the C function names that selects the units.
_NAME_PART = {RAW: "", VOLTS: "Volts", METRIC: "Metric", FORCE: "Force"}


def name_part(units, allowed=(RAW, VOLTS, METRIC)):
    """The units' part of a C function name; ValueError for units that the
    read does not serve."""
    if units not in allowed:
        raise ValueError("units must be one of %s, not %r" % (", ".join(repr(u) for u in allowed), units))
    return _NAME_PART[units]


# The bits of DataSourceDllGetFileKinds and their names, in the order in
# which the first that holds is taken as the file's main kind.
KIND_BITS = (
    ("force volume", 0x0004),
    ("high-speed", 0x0008),
    ("script", 0x0010),
    ("timed force", 0x0040),
    ("timed", 0x0020),
    ("force", 0x0002),
    ("image", 0x0001),
    ("electrochemistry", 0x0080),
    ("electrochemistry stm", 0x0100),
    ("electrochemistry afm", 0x0200),
    ("electrochemistry force", 0x0400),
    ("harlen", 0x0800),
)

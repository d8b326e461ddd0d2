"""One channel of an open file."""

import collections

from . import units as _units

Units = collections.namedtuple("Units", "metric volts sensitivity")
Units.__doc__ = """Unit texts of a channel: of its metric values, of its
volts (hardware) values, and of its Z sensitivity."""

Scales = collections.namedtuple("Scales", "metric volts sensitivity metric_per_count volts_per_count")
Scales.__doc__ = """Scales of a channel: the full range of its counts in
metric and in volts units, the Z sensitivity, and the factors that turn one
raw count of an image into a metric or a volts value (None where the
library gives none)."""


class Channel:
    """A channel of an open file, by its index. Its values are read when
    asked for, so a channel of a closed file raises ReadError."""

    def __init__(self, caller, index):
        self._call = caller
        self.index = index

    def __repr__(self):
        return "<datasource.Channel %d %r>" % (self.index, self.name)

    @property
    def name(self):
        """The data type description, such as "Height"."""
        return self._call.text("GetDataTypeDesc", self.index)

    @property
    def units(self):
        sensitivity = self._call.sized_text("GetZSensitivityUnitsSafe", self.index)
        return Units(self._call.text("GetMetricDataScaleUnits", self.index),
                     self._call.text("GetVoltsDataScaleUnits", self.index), sensitivity)

    @property
    def scales(self):
        return Scales(self._call.double("GetZScaleInSwUnits", self.index),
                      self._call.double("GetZScaleInHwUnits", self.index),
                      self._call.double("GetZSensitivitySoftScale", self.index),
                      self._call.optional_double("GetExportScalingFactor", self.index, True),
                      self._call.optional_double("GetExportScalingFactor", self.index, False))

    @property
    def shape(self):
        """(lines, samples per line)."""
        return (self._call.int("GetNumberOfLines", self.index), self._call.int("GetSamplesPerLine", self.index))

    @property
    def size(self):
        """The number of samples the channel holds."""
        return self._call.int("GetDataBufferSize", self.index)

    @property
    def line_direction(self):
        return self._call.text("GetLineDirection", self.index)

    @property
    def scan_line(self):
        return self._call.text("GetScanLine", self.index)

    @property
    def aspect_ratio(self):
        return self._call.double("GetImageAspectRatio", self.index)

    def data(self, units=_units.METRIC):
        """The image of the channel as a 2-D array of shape (lines, samples
        per line), in "raw" counts, "volts" or "metric" units, row 0 being
        the first line the file holds. Only image files have images."""
        part = _units.name_part(units)
        values = self._call.buffer("GetImage%sData" % part, self.index, size=self.size)
        lines, samples = self.shape
        if samples > 0 and values.size == lines * samples:
            return values.reshape(lines, samples)
        if samples > 0 and values.size % samples == 0:
            return values.reshape(-1, samples)
        return values.reshape(1, -1)

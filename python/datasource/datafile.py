"""An open file."""

import collections
import ctypes
import os

import numpy

from . import _library
from . import units as _units
from ._call import Caller, as_doubles, as_floats, as_ints
from .channel import Channel
from .errors import OpenError, ReadError

ForceCurve = collections.namedtuple("ForceCurve", "first second")
ForceCurve.__doc__ = """The two halves of a force curve, each an array in
time order: the first half of the channel's data, then the second."""

Segment = collections.namedtuple("Segment", "type description samples duration")
Segment.__doc__ = """A segment of a script: its type number and text, the
samples kept of it, and the time that those samples took (s)."""


def open(path):  # pylint: disable=redefined-builtin
    """Opens a file of any family; use it in a with statement, or close it."""
    return DataFile(path)


class DataFile:
    """One open file, in a handle of its own: any number may be open at once,
    and each may be read from its own thread."""

    def __init__(self, path):
        self.path = os.fspath(path)
        lib = _library.library()
        _library.begin_call()
        handle = lib.DataSourceDllOpenHandle(os.fsencode(self.path))
        if not handle:
            raise OpenError("%s does not open" % self.path, _library.last_message())
        self._call = Caller(handle, self.path)

    def close(self):
        """Closes the file; closing twice does nothing."""
        handle, self._call.handle = self._call.handle, None
        if handle:
            _library.library().DataSourceDllCloseHandle(handle)

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def __del__(self):
        # A file left open is closed when it is collected; at the end of the
        # interpreter the library may already be gone, and nothing is left to do.
        try:
            if getattr(self, "_call", None) is not None:
                self.close()
        except Exception:  # pylint: disable=broad-except
            pass

    def __repr__(self):
        state = "open" if self._call.handle else "closed"
        return "<datasource.DataFile %r, %s>" % (self.path, state)

    @property
    def closed(self):
        return not self._call.handle

    # ---- what the file is

    @property
    def family(self):
        """The text that chose the family: "Quillon Data File", "Harlen Data
        File" or ".tef"."""
        return self._call.text("GetFileTypeText")

    @property
    def kinds(self):
        """All kinds the file answers to, such as {"image", "harlen"}."""
        bits = self._call.int("GetFileKinds")
        return frozenset(name for name, bit in _units.KIND_BITS if bits & bit)

    @property
    def kind(self):
        """The main kind: "force volume", "high-speed", "script", "timed
        force", "timed", "force", "image", one of the electrochemistry
        kinds, or "unknown"."""
        bits = self._call.int("GetFileKinds")
        for name, bit in _units.KIND_BITS:
            if bits & bit:
                return name
        return "unknown"

    @property
    def channels(self):
        return tuple(Channel(self._call, i) for i in range(self._call.int("GetNumberOfChannels")))

    def channel(self, index):
        return Channel(self._call, index)

    # ---- force curves

    def points_per_curve(self, channel=0):
        return self._call.int("GetNumberOfPointsPerCurve", channel)

    def force_curve(self, channel=0, units=_units.METRIC):
        """The two halves of the force curve of a force file, in "raw",
        "volts", "metric" or "force" units."""
        part = _units.name_part(units, (_units.RAW, _units.VOLTS, _units.METRIC, _units.FORCE))
        # Each half may be as long as the channel: the library is not asked
        # for more than it holds, and what it writes is what is returned.
        size = max(self._call.int("GetDataBufferSize", channel), 1)
        first = numpy.full(size, numpy.nan)
        second = numpy.full(size, numpy.nan)
        self._call.status("GetForceCurve%sData" % part, channel, as_doubles(first), as_doubles(second))
        return ForceCurve(_written(first), _written(second))

    # ---- force volumes

    @property
    def forces_per_line(self):
        return self._call.int("GetForcesPerLine")

    def force_volume_image(self, units=_units.METRIC):
        """The image of a force volume (its channel 0), as (lines, samples)."""
        values = self._call.buffer("GetForceVolume%sImageData" % _units.name_part(units))
        lines, samples = self.channel(0).shape
        return values.reshape(lines, samples) if values.size == lines * samples and samples else values

    def force_volume_curve(self, index, units=_units.METRIC):
        """The force curve at index of a force volume, in "raw", "volts",
        "metric" or "force" units. Invalid points at the end of the first
        half are cut, as the library reports."""
        part = _units.name_part(units, (_units.RAW, _units.VOLTS, _units.METRIC, _units.FORCE))
        points = max(self.points_per_curve(1), 0)
        first = numpy.zeros(max(points, 1))
        second = numpy.zeros(max(points, 1))
        first_count, second_count = ctypes.c_int(), ctypes.c_int()
        self._call.status("GetForceVolume%sForceCurveData" % part, index, as_doubles(first), as_doubles(second),
                          ctypes.byref(first_count), ctypes.byref(second_count), points)
        return ForceCurve(first[:first_count.value], second[:second_count.value])

    # ---- hold sections

    def hold_data(self, channel=0, curve=None, units=_units.METRIC):
        """The hold section of a force file's curve, or of curve number
        curve of a force volume."""
        part = _units.name_part(units)
        out = numpy.zeros(max(self._call.int("GetNumberOfHoldPoints", channel), 1))
        if curve is None:
            self._call.status("GetForce%sHoldData" % part, channel, as_doubles(out))
        else:
            self._call.status("GetForceVolume%sHoldData" % part, channel, curve, as_doubles(out))
        return out[:self._call.int("GetNumberOfHoldPoints", channel)]

    # ---- high-speed data

    def high_speed_data(self, channel=0, units=_units.METRIC):
        """The samples of a high-speed channel. The library counts the
        channel's length in bytes; only the samples it holds are returned."""
        values = self._call.buffer("GetHSDC%sForceCurveData" % _units.name_part(units), channel)
        return values[:self._call.int("GetDataBufferSize", channel)]

    def high_speed_rate(self, channel=0):
        """Samples per second."""
        return self._call.double("GetHsdcRate", channel)

    # ---- scripts

    @property
    def segments(self):
        count = self._call.int("GetScriptSegmentCount")
        samples = numpy.zeros(max(count, 1), dtype=numpy.intc)
        types = numpy.zeros(max(count, 1), dtype=numpy.intc)
        durations = numpy.zeros(max(count, 1), dtype=numpy.float32)
        self._call.status("GetScriptSegmentInfo", count, as_ints(samples), as_ints(types), as_floats(durations))
        return [Segment(int(types[i]), segment_description(int(types[i])), int(samples[i]), float(durations[i]))
                for i in range(count)]

    def script_data(self, channel=0, segment=None, units=_units.METRIC):
        """(time, values) of one segment, or of all of them for None."""
        segments = self.segments
        chosen = segments if segment is None else [segments[segment]]
        points = sum(s.samples for s in chosen)
        time = numpy.zeros(max(points, 1))
        values = numpy.zeros(max(points, 1))
        self._call.status("GetScript%sSegmentData" % _units.name_part(units), channel,
                          -1 if segment is None else segment, points, as_doubles(time), as_doubles(values))
        return time[:points], values[:points]

    # ---- capture

    def capture_z(self, first_count, second_count):
        """The synthetic Z of a capture for a curve of these two halves."""
        first = numpy.zeros(max(first_count, 1))
        second = numpy.zeros(max(second_count, 1))
        self._call.status("GetCrestloadCaptureZData", as_doubles(first), as_doubles(second), first_count,
                          second_count)
        return ForceCurve(first[:first_count], second[:second_count])

    # ---- parameters

    @property
    def parameters(self):
        """What the library answers of the file's parameters, by name; a
        value that the library refuses for this file is left out. Values of
        curves are those of channel 1 in a force volume, else of channel 0."""
        if self.closed:
            raise ReadError("%s is closed" % self.path)
        call = self._call
        # The values of curves are those of the channel that holds them.
        curves = 1 if "force volume" in self.kinds else 0
        readers = {
            "scan_size": lambda: call.double("GetScanSize", 0),
            "scan_size_unit": lambda: call.text("GetScanSizeUnit", 0),
            "poisson_ratio": lambda: call.double("GetPoissonRatio"),
            "tip_radius": lambda: call.double("GetTipRadius"),
            "half_angle": lambda: call.double("GetHalfAngle"),
            "spring_constant": lambda: call.double("GetForceSpringConstant", curves),
            "ramp_size": lambda: call.double_with_flag("GetRampSize", 0, True),
            "ramp_units": lambda: call.text("GetRampUnits", 0, True),
            "forward_ramp_velocity": lambda: call.double_with_flag("GetForwardRampVelocity", 0, True),
            "reverse_ramp_velocity": lambda: call.double_with_flag("GetReverseRampVelocity", 0, True),
            "force_samples_per_line": lambda: call.int("GetForceSamplesPerLine", 0),
            "trace_points": lambda: call.int("GetNumberOfTracePoints", 0),
            "points_per_curve": lambda: call.int("GetNumberOfPointsPerCurve", curves),
            "hold_points": lambda: call.int("GetNumberOfHoldPoints", 0),
            "hold_time": lambda: call.double("GetForceHoldTime", 0),
            "force_curves": lambda: call.int("GetNumberOfForceCurves"),
            "forces_per_line": lambda: call.int("GetForcesPerLine"),
            "segment_count": lambda: call.int("GetScriptSegmentCount"),
            "tapping_frequency": lambda: call.double("GetCrestloadTappingFreq"),
            "sweep_channel": lambda: call.text("GetForceSweepChannel", 0),
            "sweep_range": lambda: _sweep_range(call),
        }
        values = {}
        for name, read in readers.items():
            value = call.optional(read)
            if value is not None:
                values[name] = value
        return values


def segment_description(segment_type):
    """The text of a script segment type, such as "Extend Z"."""
    lib = _library.library()
    return _library.take_text(lib.DataSourceDllGetSegmentDescription(segment_type))


def force_units():
    """The unit of values read in force units."""
    return _library.library().DataSourceDllGetForceDataScaleUnits().decode("latin-1")


def _written(values):
    """The part of a NaN-filled buffer that a read wrote, from its start."""
    unwritten = numpy.flatnonzero(numpy.isnan(values))
    return values[:unwritten[0]] if unwritten.size else values


def _sweep_range(call):
    low, high = ctypes.c_double(), ctypes.c_double()
    call.status("GetForceSweepFreqRange", 0, ctypes.byref(low), ctypes.byref(high))
    return (low.value, high.value)

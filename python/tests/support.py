"""What the tests of the package share: the test files, and the flat C
functions called straight through ctypes, to hold the package against.

The environment names the files:
  DATASOURCE_TEST_FILES   a folder with the files of write_test_files, or
  DATASOURCE_TEST_WRITER  the write_test_files program, run into a temporary folder;
  DATASOURCE_SAMPLEGEN    the samplegen program (optional), likewise.
"""

import atexit
import ctypes
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))

import numpy  # noqa: E402

import datasource  # noqa: E402,F401  (the tests take it from here)
from datasource import _library  # noqa: E402

_folders = {}


def _made_by(variable):
    program = os.environ.get(variable)
    if not program:
        return None
    if variable not in _folders:
        folder = tempfile.mkdtemp(prefix="datasource_tests_")
        atexit.register(shutil.rmtree, folder, True)
        subprocess.run([program, folder], check=True, stdout=subprocess.DEVNULL)
        _folders[variable] = folder
    return _folders[variable]


def test_file(name):
    folder = os.environ.get("DATASOURCE_TEST_FILES") or _made_by("DATASOURCE_TEST_WRITER")
    if not folder:
        raise RuntimeError("set DATASOURCE_TEST_FILES or DATASOURCE_TEST_WRITER")
    return os.path.join(folder, name)


def sample_files():
    """The files samplegen writes, or none without it."""
    folder = _made_by("DATASOURCE_SAMPLEGEN")
    if not folder:
        return []
    return sorted(os.path.join(folder, name) for name in os.listdir(folder))


class Flat:
    """The flat C functions on the one current file, declared here on their
    own so that the package is checked against the library and not against
    itself."""

    def __init__(self, path):
        self.lib = _library.library()
        self._declare()
        if self.lib.DataSourceDllOpen(os.fsencode(path)) != 1:
            raise RuntimeError("%s does not open" % path)

    def close(self):
        self.lib.DataSourceDllClose()

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def _declare(self):
        lib = self.lib
        P = ctypes.POINTER
        d, i = ctypes.c_double, ctypes.c_int
        lib.DataSourceDllOpen.argtypes = [ctypes.c_char_p]
        for name in ("Image", "ImageMetric", "ImageVolts"):
            getattr(lib, "DataSourceDllGet%sData" % name).argtypes = [i, P(d), i, P(i)]
        for name in ("", "Metric", "Volts", "Force"):
            getattr(lib, "DataSourceDllGetForceCurve%sData" % name).argtypes = [i, P(d), P(d)]
            getattr(lib, "DataSourceDllGetForceVolume%sForceCurveData" % name).argtypes = [
                i, P(d), P(d), P(i), P(i), i]
        for name in ("", "Metric", "Volts"):
            getattr(lib, "DataSourceDllGetForceVolume%sImageData" % name).argtypes = [P(d), i, P(i)]
            getattr(lib, "DataSourceDllGetHSDC%sForceCurveData" % name).argtypes = [i, P(d), i, P(i)]
            getattr(lib, "DataSourceDllGetScript%sSegmentData" % name).argtypes = [i, i, i, P(d), P(d)]
            getattr(lib, "DataSourceDllGetForce%sHoldData" % name).argtypes = [i, P(d)]
            getattr(lib, "DataSourceDllGetForceVolume%sHoldData" % name).argtypes = [i, i, P(d)]
        for name in ("NumberOfChannels", "NumberOfForceCurves", "ForcesPerLine", "ScriptSegmentCount"):
            getattr(lib, "DataSourceDllGet" + name).argtypes = [P(i)]
        for name in ("DataBufferSize", "NumberOfLines", "SamplesPerLine", "NumberOfPointsPerCurve",
                     "NumberOfHoldPoints"):
            getattr(lib, "DataSourceDllGet" + name).argtypes = [i, P(i)]
        for name in ("ZScaleInSwUnits", "ZScaleInHwUnits", "ScanSize", "HsdcRate", "ForceSpringConstant"):
            getattr(lib, "DataSourceDllGet" + name).argtypes = [i, P(d)]
        for name in ("PoissonRatio", "TipRadius", "HalfAngle"):
            getattr(lib, "DataSourceDllGet" + name).argtypes = [P(d)]
        for name in ("DataTypeDesc", "MetricDataScaleUnits", "VoltsDataScaleUnits", "ScanSizeUnit"):
            getattr(lib, "DataSourceDllGet" + name).argtypes = [i]
            getattr(lib, "DataSourceDllGet" + name).restype = ctypes.c_void_p
        lib.DataSourceDllGetScriptSegmentInfo.argtypes = [i, P(i), P(i), P(ctypes.c_float)]
        lib.DataSourceDllGetCrestloadCaptureZData.argtypes = [P(d), P(d), i, i]

    def fn(self, name):
        return getattr(self.lib, "DataSourceDll" + name)

    def int(self, name, *args):
        out = ctypes.c_int()
        assert self.fn(name)(*(args + (ctypes.byref(out),))) == 1, name
        return out.value

    def double(self, name, *args):
        out = ctypes.c_double()
        assert self.fn(name)(*(args + (ctypes.byref(out),))) == 1, name
        return out.value

    def text(self, name, *args):
        return _library.take_text(self.fn(name)(*args))

    def doubles(self, size):
        array = numpy.full(size, -7777.25)
        return array, array.ctypes.data_as(ctypes.POINTER(ctypes.c_double))

    def counted(self, name, *args, size):
        out, pointer = self.doubles(size)
        count = ctypes.c_int()
        assert self.fn(name)(*(args + (pointer, size, ctypes.byref(count)))) == 1, name
        return out[:count.value]

"""Finding and loading the shared library, and calling it.

The library is looked for, in this order:

1. the file named by the environment variable DATASOURCE_LIBRARY
   (for example /opt/ds/lib/libDataSourceDll.so.1);
2. a libDataSourceDll.so* next to this package's files (in the folder of
   datasource/__init__.py), where an installer may copy or link it;
3. the system's own search (LD_LIBRARY_PATH, the loader's cache), by the
   name libDataSourceDll.so.1.
"""

import ctypes
import glob
import os
import threading

from .errors import DataSourceError

ENVIRONMENT_VARIABLE = "DATASOURCE_LIBRARY"
SONAME = "libDataSourceDll.so.1"

_lock = threading.Lock()
_library = None
_library_path = None
_messages = threading.local()


def _candidates():
    named = os.environ.get(ENVIRONMENT_VARIABLE)
    if named:
        # An explicit choice is the only one: a wrong path is an error, not
        # a reason to take some other library.
        return [named]
    here = os.path.dirname(os.path.abspath(__file__))
    beside = sorted(glob.glob(os.path.join(here, "libDataSourceDll.so*")))
    return beside + [SONAME]


# The user messages of the library (a refused file, a failed save) come
# through this callback on the thread whose call caused them. Each thread
# keeps the last one since its call began, to put into the exception.
_MESSAGE_CALLBACK = ctypes.CFUNCTYPE(None, ctypes.c_char_p, ctypes.c_void_p)


@_MESSAGE_CALLBACK
def _on_message(text, _user):
    _messages.last = text.decode("latin-1") if text is not None else ""


def _declare(lib):
    c_int, c_double, c_float, c_bool = ctypes.c_int, ctypes.c_double, ctypes.c_float, ctypes.c_bool
    c_void_p, c_char_p = ctypes.c_void_p, ctypes.c_char_p
    p_int, p_double, p_float = ctypes.POINTER(c_int), ctypes.POINTER(c_double), ctypes.POINTER(c_float)
    handle = c_void_p
    text = c_void_p  # released with DataSourceDllFreeString, so kept as an address
    signatures = {
        "DataSourceDllOpenHandle": (handle, [c_char_p]),
        "DataSourceDllCloseHandle": (c_int, [handle]),
        "DataSourceDllFreeString": (None, [c_void_p]),
        "DataSourceDllSetMessageCallback": (None, [_MESSAGE_CALLBACK, c_void_p]),
        "DataSourceDllGetSegmentDescription": (text, [c_int]),
        "DataSourceDllGetForceDataScaleUnits": (c_char_p, []),
        "DataSourceDllHandleGetFileTypeText": (text, [handle]),
        "DataSourceDllHandleGetFileKinds": (c_int, [handle, p_int]),
        "DataSourceDllHandleGetNumberOfChannels": (c_int, [handle, p_int]),
        "DataSourceDllHandleGetNumberOfForceCurves": (c_int, [handle, p_int]),
        "DataSourceDllHandleGetForcesPerLine": (c_int, [handle, p_int]),
        "DataSourceDllHandleGetScriptSegmentCount": (c_int, [handle, p_int]),
        "DataSourceDllHandleGetPoissonRatio": (c_int, [handle, p_double]),
        "DataSourceDllHandleGetTipRadius": (c_int, [handle, p_double]),
        "DataSourceDllHandleGetHalfAngle": (c_int, [handle, p_double]),
        "DataSourceDllHandleGetCrestloadTappingFreq": (c_int, [handle, p_double]),
        "DataSourceDllHandleGetScriptSegmentInfo": (c_int, [handle, c_int, p_int, p_int, p_float]),
        "DataSourceDllHandleGetCrestloadCaptureZData": (c_int, [handle, p_double, p_double, c_int, c_int]),
    }
    for name in ("NumberOfLines", "SamplesPerLine", "DataBufferSize", "ForceSamplesPerLine",
                 "NumberOfTracePoints", "NumberOfPointsPerCurve", "NumberOfHoldPoints"):
        signatures["DataSourceDllHandleGet" + name] = (c_int, [handle, c_int, p_int])
    for name in ("ZScaleInSwUnits", "ZScaleInHwUnits", "ZSensitivitySoftScale", "ScanSize",
                 "ImageAspectRatio", "ForceSpringConstant", "ForceHoldTime", "HsdcRate"):
        signatures["DataSourceDllHandleGet" + name] = (c_int, [handle, c_int, p_double])
    for name in ("ExportScalingFactor", "ScalingFactor", "RampSize", "ForwardRampVelocity",
                 "ReverseRampVelocity"):
        signatures["DataSourceDllHandleGet" + name] = (c_int, [handle, c_int, p_double, c_bool])
    for name in ("MetricDataScaleUnits", "VoltsDataScaleUnits", "DataTypeDesc", "LineDirection", "ScanLine",
                 "ScanSizeUnit", "ForceSweepChannel"):
        signatures["DataSourceDllHandleGet" + name] = (text, [handle, c_int])
    signatures["DataSourceDllHandleGetRampUnits"] = (text, [handle, c_int, c_bool])
    signatures["DataSourceDllHandleGetZSensitivityUnitsSafe"] = (c_int, [handle, c_int, c_char_p, c_int])
    signatures["DataSourceDllHandleGetForceSweepFreqRange"] = (c_int, [handle, c_int, p_double, p_double])
    for units in ("", "Metric", "Volts"):
        signatures["DataSourceDllHandleGetImage%sData" % units] = (c_int, [handle, c_int, p_double, c_int, p_int])
        signatures["DataSourceDllHandleGetHSDC%sForceCurveData" % units] = (
            c_int, [handle, c_int, p_double, c_int, p_int])
        signatures["DataSourceDllHandleGetForceVolume%sImageData" % units] = (
            c_int, [handle, p_double, c_int, p_int])
        signatures["DataSourceDllHandleGetForce%sHoldData" % units] = (c_int, [handle, c_int, p_double])
        signatures["DataSourceDllHandleGetForceVolume%sHoldData" % units] = (
            c_int, [handle, c_int, c_int, p_double])
        signatures["DataSourceDllHandleGetScript%sSegmentData" % units] = (
            c_int, [handle, c_int, c_int, c_int, p_double, p_double])
    for units in ("", "Metric", "Volts", "Force"):
        signatures["DataSourceDllHandleGetForceCurve%sData" % units] = (c_int, [handle, c_int, p_double, p_double])
        signatures["DataSourceDllHandleGetForceVolume%sForceCurveData" % units] = (
            c_int, [handle, c_int, p_double, p_double, p_int, p_int, c_int])
    for name, (restype, argtypes) in signatures.items():
        function = getattr(lib, name)
        function.restype = restype
        function.argtypes = argtypes


def library():
    """The loaded library, loaded on first use."""
    global _library, _library_path
    with _lock:
        if _library is None:
            failures = []
            for candidate in _candidates():
                try:
                    lib = ctypes.CDLL(candidate)
                except OSError as error:
                    failures.append(str(error))
                    continue
                _declare(lib)
                lib.DataSourceDllSetMessageCallback(_on_message, None)
                _library, _library_path = lib, candidate
                break
            else:
                raise DataSourceError(
                    "the DataSourceDll library was not found; set %s to its path (%s)"
                    % (ENVIRONMENT_VARIABLE, "; ".join(failures)))
        return _library


def library_path():
    """The path or name the library was loaded from."""
    library()
    return _library_path


def begin_call():
    """Forgets the last user message of this thread before a call."""
    _messages.last = None


def last_message():
    """The last user message the library gave this thread since begin_call, or None."""
    return getattr(_messages, "last", None)


def take_text(address):
    """The text at address, which is then released as the library asks."""
    if not address:
        return None
    try:
        return ctypes.string_at(address).decode("latin-1")
    finally:
        library().DataSourceDllFreeString(address)

"""Calls of the handle functions for one open file, with the library's
refusals turned into exceptions."""

import ctypes

import numpy

from . import _library
from .errors import ReadError


class Caller:
    """Calls DataSourceDllHandle<name>(handle, ...) for the file it holds."""

    def __init__(self, handle, path):
        self.handle = handle
        self.path = path

    def function(self, name):
        if not self.handle:
            raise ReadError("%s is closed" % self.path)
        return getattr(_library.library(), "DataSourceDllHandle" + name)

    def invoke(self, name, *args):
        """What the call answers, with this thread's user message of an
        earlier call forgotten."""
        function = self.function(name)
        _library.begin_call()
        return function(self.handle, *args)

    def status(self, name, *args):
        """The result of a call that answers 1 or -1; ReadError for -1."""
        if self.invoke(name, *args) != 1:
            raise ReadError("%s refused by %s" % (name, self.path), _library.last_message())
        return 1

    def attempt(self, name, *args):
        """True when a call answers 1; a refusal is no error here."""
        return self.invoke(name, *args) == 1

    def _value(self, ctype, name, *args):
        out = ctype()
        self.status(name, *(args + (ctypes.byref(out),)))
        return out.value

    def int(self, name, *args):
        return self._value(ctypes.c_int, name, *args)

    def double(self, name, *args):
        """A double written by a call whose output follows the arguments
        before it; any arguments after the output are given as after."""
        return self._value(ctypes.c_double, name, *args)

    def double_with_flag(self, name, channel, flag):
        out = ctypes.c_double()
        self.status(name, channel, ctypes.byref(out), flag)
        return out.value

    def optional_double(self, name, channel, flag):
        out = ctypes.c_double()
        return out.value if self.attempt(name, channel, ctypes.byref(out), flag) else None

    def optional(self, reader, *args):
        """reader(*args), or None where the library refuses it."""
        try:
            return reader(*args)
        except ReadError:
            return None

    def text(self, name, *args):
        """A text result ("UNKNOWN" where the library has none); a closed
        file raises ReadError."""
        return _library.take_text(self.invoke(name, *args))

    def sized_text(self, name, channel, size=256):
        out = ctypes.create_string_buffer(size)
        self.status(name, channel, out, size)
        return out.value.decode("latin-1")

    def buffer(self, name, *args, size=None):
        """A 1-D array read by a call of the shape (args..., out, bufferSize,
        &count). Without a size, a first call with an empty buffer learns
        the count, which the library writes before it refuses the buffer."""
        if size is None:
            count = ctypes.c_int(-1)
            probe = numpy.zeros(1, dtype=numpy.float64)
            self.attempt(name, *(args + (as_doubles(probe), 0, ctypes.byref(count))))
            if count.value < 0:
                # The library refused before it counted: ask again to raise.
                self.status(name, *(args + (as_doubles(probe), 0, ctypes.byref(count))))
            size = count.value
        out = numpy.zeros(max(size, 1), dtype=numpy.float64)
        count = ctypes.c_int()
        self.status(name, *(args + (as_doubles(out), size, ctypes.byref(count))))
        return out[:count.value]


def as_doubles(array):
    """The C view of a contiguous float64 array."""
    return array.ctypes.data_as(ctypes.POINTER(ctypes.c_double))


def as_ints(array):
    return array.ctypes.data_as(ctypes.POINTER(ctypes.c_int))


def as_floats(array):
    return array.ctypes.data_as(ctypes.POINTER(ctypes.c_float))

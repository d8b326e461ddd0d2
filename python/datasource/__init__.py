"""Reading the data files of scanning probe microscopes with numpy.

    import datasource

    with datasource.open("samples/grating.tef") as scan:
        height = scan.channels[0]
        print(height.name, height.units.metric, height.shape)
        image = height.data(units="metric")        # a 2-D numpy array

A file of any family opens the same way; what it holds depends on its kind
(scan.kind): images in channels, force curves (force_curve), force volumes
(force_volume_image, force_volume_curve), hold sections (hold_data),
high-speed data (high_speed_data), scripts (segments, script_data).
Values come in "raw" counts, "volts", "metric" units, and for force curves
"force". Several files may be open at once, also from several threads.

The package calls the shared library DataSourceDll through ctypes; see
datasource._library for where it looks for it (the environment variable
DATASOURCE_LIBRARY first).
"""

from ._library import ENVIRONMENT_VARIABLE, library_path
from .channel import Channel, Scales, Units
from .datafile import DataFile, ForceCurve, Segment, force_units, open, segment_description
from .errors import DataSourceError, OpenError, ReadError
from .units import FORCE, METRIC, RAW, VOLTS

__version__ = "1.0.0"

__all__ = [
    "Channel", "DataFile", "DataSourceError", "ENVIRONMENT_VARIABLE", "FORCE", "ForceCurve", "METRIC",
    "OpenError", "RAW", "ReadError", "Scales", "Segment", "Units", "VOLTS", "force_units", "library_path",
    "open", "segment_description",
]

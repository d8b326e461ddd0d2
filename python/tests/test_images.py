"""Channels and images, held against the flat C functions."""

import unittest

import numpy

from support import Flat, datasource, sample_files, test_file

IMAGE_FILES = ("image.tef", "quillon_image.qdf", "harlen_image.hdf")


class ImageTest(unittest.TestCase):
    def test_images_in_every_unit_are_what_the_flat_functions_give(self):
        for name in IMAGE_FILES:
            path = test_file(name)
            with self.subTest(name), datasource.open(path) as scan, Flat(path) as flat:
                channels = scan.channels
                self.assertEqual(len(channels), flat.int("GetNumberOfChannels"))
                for channel in channels:
                    size = flat.int("GetDataBufferSize", channel.index)
                    lines = flat.int("GetNumberOfLines", channel.index)
                    samples = flat.int("GetSamplesPerLine", channel.index)
                    self.assertEqual(channel.shape, (lines, samples))
                    for units, function in (("raw", "GetImageData"), ("volts", "GetImageVoltsData"),
                                            ("metric", "GetImageMetricData")):
                        image = channel.data(units=units)
                        self.assertEqual(image.shape, (lines, samples))
                        expected = flat.counted(function, channel.index, size=size)
                        numpy.testing.assert_array_equal(image.ravel(), expected)

    def test_a_channel_has_its_name_units_and_scales(self):
        for name in IMAGE_FILES:
            path = test_file(name)
            with self.subTest(name), datasource.open(path) as scan, Flat(path) as flat:
                for channel in scan.channels:
                    i = channel.index
                    self.assertEqual(channel.name, flat.text("GetDataTypeDesc", i))
                    self.assertEqual(channel.units.metric, flat.text("GetMetricDataScaleUnits", i))
                    self.assertEqual(channel.units.volts, flat.text("GetVoltsDataScaleUnits", i))
                    self.assertEqual(channel.scales.metric, flat.double("GetZScaleInSwUnits", i))
                    self.assertEqual(channel.scales.volts, flat.double("GetZScaleInHwUnits", i))
                    # The factor per count is what turns raw counts into the metric image.
                    raw, metric = channel.data("raw"), channel.data("metric")
                    numpy.testing.assert_allclose(raw * channel.scales.metric_per_count, metric, rtol=1e-12)

    def test_the_tef_channels_are_named_as_the_file_has_them(self):
        with datasource.open(test_file("image.tef")) as scan:
            self.assertEqual(scan.family, ".tef")
            self.assertEqual(scan.kind, "image")
            self.assertEqual(len(scan.channels), 2)
            self.assertEqual(scan.channels[0].shape, (6, 8))
            self.assertEqual(scan.channels[0].units.metric, "nm")

    def test_a_force_file_has_no_image(self):
        with datasource.open(test_file("quillon_force.qdf")) as curves:
            with self.assertRaises(datasource.ReadError):
                curves.channels[0].data()
            with self.assertRaises(ValueError):
                curves.channels[0].data(units="force")

    def test_the_samples_of_samplegen_read_as_the_flat_functions_read_them(self):
        for path in sample_files():
            with self.subTest(path), datasource.open(path) as scan, Flat(path) as flat:
                if "image" not in scan.kinds:
                    continue
                for channel in scan.channels:
                    expected = flat.counted("GetImageMetricData", channel.index,
                                            size=flat.int("GetDataBufferSize", channel.index))
                    numpy.testing.assert_array_equal(channel.data().ravel(), expected)


if __name__ == "__main__":
    unittest.main()

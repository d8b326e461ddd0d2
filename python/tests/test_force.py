"""Force curves, force volumes, hold sections, high-speed data and scripts,
held against the flat C functions."""

import ctypes
import unittest

import numpy

from support import Flat, datasource, sample_files, test_file


def check_force_curve(test, curves, flat):
    """Every unit of the force curve of channel 0 against the flat functions."""
    points = flat.int("GetNumberOfPointsPerCurve", 0)
    # No half is longer than the channel; what lies beyond a half stays as it was.
    size = flat.int("GetDataBufferSize", 0)
    for units, part in (("raw", ""), ("volts", "Volts"), ("metric", "Metric"), ("force", "Force")):
        curve = curves.force_curve(0, units=units)
        test.assertEqual(len(curve.second), points)
        first, p_first = flat.doubles(size)
        second, p_second = flat.doubles(size)
        test.assertEqual(flat.fn("GetForceCurve%sData" % part)(0, p_first, p_second), 1)
        for half, expected in ((curve.first, first), (curve.second, second)):
            numpy.testing.assert_array_equal(half, expected[:len(half)])
            test.assertTrue((expected[len(half):] == -7777.25).all())


def check_force_volume(test, volume, flat):
    """The image, every curve and every hold section of a force volume
    against the flat functions."""
    image = volume.force_volume_image(units="metric")
    test.assertEqual(image.shape, volume.channel(0).shape)
    lines, samples = image.shape
    numpy.testing.assert_array_equal(
        image.ravel(), flat.counted("GetForceVolumeMetricImageData", size=lines * samples))
    points = flat.int("GetNumberOfPointsPerCurve", 1)
    for index in range(volume.forces_per_line):
        for units, part in (("raw", ""), ("metric", "Metric"), ("force", "Force")):
            curve = volume.force_volume_curve(index, units=units)
            first, p_first = flat.doubles(points)
            second, p_second = flat.doubles(points)
            n_first, n_second = ctypes.c_int(), ctypes.c_int()
            test.assertEqual(flat.fn("GetForceVolume%sForceCurveData" % part)(
                index, p_first, p_second, ctypes.byref(n_first), ctypes.byref(n_second), points), 1)
            numpy.testing.assert_array_equal(curve.first, first[:n_first.value])
            numpy.testing.assert_array_equal(curve.second, second[:n_second.value])
        hold = volume.hold_data(1, curve=index, units="volts")
        expected, pointer = flat.doubles(len(hold))
        test.assertEqual(flat.fn("GetForceVolumeVoltsHoldData")(1, index, pointer), 1)
        numpy.testing.assert_array_equal(hold, expected)


class ForceCurveTest(unittest.TestCase):
    def test_the_two_halves_of_a_force_curve_in_every_unit(self):
        for name in ("quillon_force.qdf", "harlen_force.hdf"):
            path = test_file(name)
            with self.subTest(name), datasource.open(path) as curves, Flat(path) as flat:
                self.assertEqual(curves.kind, "force")
                check_force_curve(self, curves, flat)

    def test_the_hold_section_of_a_force_curve(self):
        path = test_file("quillon_force.qdf")
        with datasource.open(path) as curves, Flat(path) as flat:
            hold = curves.hold_data(0, units="metric")
            self.assertEqual(len(hold), flat.int("GetNumberOfHoldPoints", 0))
            expected, pointer = flat.doubles(len(hold))
            self.assertEqual(flat.fn("GetForceMetricHoldData")(0, pointer), 1)
            numpy.testing.assert_array_equal(hold, expected)

    def test_the_curves_of_the_samplegen_samples(self):
        for path in sample_files():
            with self.subTest(path), datasource.open(path) as f, Flat(path) as flat:
                if f.kind == "force":
                    check_force_curve(self, f, flat)
                elif f.kind == "force volume":
                    check_force_volume(self, f, flat)


class ForceVolumeTest(unittest.TestCase):
    def test_the_image_and_every_curve_of_a_force_volume(self):
        path = test_file("quillon_fvol.qdf")
        with datasource.open(path) as volume, Flat(path) as flat:
            self.assertEqual(volume.kind, "force volume")
            check_force_volume(self, volume, flat)

    def test_a_curve_index_beyond_the_volume_is_refused(self):
        with datasource.open(test_file("quillon_fvol.qdf")) as volume:
            with self.assertRaises(datasource.ReadError):
                volume.force_volume_curve(volume.forces_per_line)

    def test_the_capture_z_of_a_volume_with_capture_on(self):
        path = test_file("quillon_fvol.qdf")
        with datasource.open(path) as volume, Flat(path) as flat:
            z = volume.capture_z(10, 6)
            first, p_first = flat.doubles(10)
            second, p_second = flat.doubles(6)
            self.assertEqual(flat.fn("GetCrestloadCaptureZData")(p_first, p_second, 10, 6), 1)
            numpy.testing.assert_array_equal(z.first, first)
            numpy.testing.assert_array_equal(z.second, second)
            self.assertGreater(numpy.ptp(numpy.concatenate(z)), 0.0)


class HighSpeedAndScriptTest(unittest.TestCase):
    def test_high_speed_data_and_rates(self):
        path = test_file("quillon_hsdc.qdf")
        with datasource.open(path) as capture, Flat(path) as flat:
            self.assertEqual(capture.kind, "high-speed")
            for channel in capture.channels:
                data = capture.high_speed_data(channel.index, units="volts")
                self.assertEqual(len(data), flat.int("GetDataBufferSize", channel.index))
                count = ctypes.c_int()
                flat.fn("GetHSDCVoltsForceCurveData")(channel.index, flat.doubles(1)[1], 0, ctypes.byref(count))
                expected = flat.counted("GetHSDCVoltsForceCurveData", channel.index, size=count.value)
                # Beyond the samples the channel holds the buffer is left as it was.
                numpy.testing.assert_array_equal(data, expected[:len(data)])
                self.assertTrue((expected[len(data):] == -7777.25).all())
                self.assertEqual(capture.high_speed_rate(channel.index),
                                 flat.double("GetHsdcRate", channel.index))

    def test_script_segments_and_their_data(self):
        path = test_file("quillon_script.qdf")
        with datasource.open(path) as script, Flat(path) as flat:
            self.assertEqual(script.kind, "script")
            segments = script.segments
            self.assertEqual(len(segments), flat.int("GetScriptSegmentCount"))
            self.assertTrue(all(s.description == datasource.segment_description(s.type) for s in segments))
            for segment in list(range(len(segments))) + [None]:
                time, values = script.script_data(0, segment=segment, units="metric")
                points = len(values)
                expected_time, p_time = flat.doubles(points)
                expected, p_values = flat.doubles(points)
                self.assertEqual(flat.fn("GetScriptMetricSegmentData")(
                    0, -1 if segment is None else segment, points, p_time, p_values), 1)
                numpy.testing.assert_array_equal(time, expected_time)
                numpy.testing.assert_array_equal(values, expected)


if __name__ == "__main__":
    unittest.main()

"""Opening and closing, several files at once, errors, and the parameters."""

import threading
import unittest

import numpy

from support import Flat, datasource, test_file


class OpeningTest(unittest.TestCase):
    def test_each_family_is_named_and_its_kind_known(self):
        cases = {
            "image.tef": (".tef", "image"),
            "quillon_image.qdf": ("Quillon Data File", "image"),
            "quillon_force.qdf": ("Quillon Data File", "force"),
            "quillon_script.qdf": ("Quillon Data File", "script"),
            "harlen_image.hdf": ("Harlen Data File", "image"),
            "harlen_force.hdf": ("Harlen Data File", "force"),
        }
        for name, (family, kind) in cases.items():
            with self.subTest(name), datasource.open(test_file(name)) as f:
                self.assertEqual(f.family, family)
                self.assertEqual(f.kind, kind)
        with datasource.open(test_file("harlen_force.hdf")) as f:
            self.assertEqual(f.kinds, {"force", "harlen"})

    def test_a_closed_file_refuses_reads_and_closes_again_quietly(self):
        f = datasource.open(test_file("image.tef"))
        channel = f.channels[0]
        f.close()
        self.assertTrue(f.closed)
        f.close()
        with self.assertRaises(datasource.ReadError):
            channel.data()
        with self.assertRaises(datasource.ReadError):
            f.parameters

    def test_a_refused_file_raises_with_the_message_the_library_gave_its_user(self):
        with self.assertRaises(datasource.OpenError) as caught:
            datasource.open(test_file("three_byte_pixels.tef"))
        self.assertEqual(caught.exception.message, "Only 16 Bit and 32 Bit pixel data are supported.")
        self.assertIn("Only 16 Bit and 32 Bit pixel data are supported.", str(caught.exception))

    def test_a_missing_file_raises_without_a_message(self):
        with self.assertRaises(datasource.OpenError) as caught:
            datasource.open(test_file("does_not_exist.qdf"))
        self.assertIsNone(caught.exception.message)

    def test_the_flat_current_file_is_not_touched_by_open_files(self):
        path = test_file("quillon_image.qdf")
        with Flat(path) as flat:
            channels = flat.int("GetNumberOfChannels")
            with datasource.open(test_file("image.tef")), datasource.open(test_file("harlen_force.hdf")), \
                    datasource.open(path) as same:
                self.assertEqual(flat.int("GetNumberOfChannels"), channels)
                self.assertEqual(flat.text("GetDataTypeDesc", 0), same.channels[0].name)
            self.assertEqual(flat.int("GetNumberOfChannels"), channels)


class SeveralFilesTest(unittest.TestCase):
    def test_files_of_different_families_read_from_threads_at_once(self):
        names = ("image.tef", "quillon_fvol.qdf", "harlen_image.hdf", "quillon_image.qdf")
        files = [datasource.open(test_file(name)) for name in names]
        try:
            def read(f):
                if f.kind == "force volume":
                    return [numpy.concatenate(f.force_volume_curve(i)) for i in range(f.forces_per_line)]
                return [c.data() for c in f.channels]

            alone = [read(f) for f in files]
            failures = []

            def job(f, expected):
                for _ in range(20):
                    got = read(f)
                    if len(got) != len(expected) or any(not numpy.array_equal(a, b) for a, b in zip(got, expected)):
                        failures.append(f.path)

            threads = [threading.Thread(target=job, args=(f, e)) for f, e in zip(files, alone)]
            for t in threads:
                t.start()
            for t in threads:
                t.join()
            self.assertEqual(failures, [])
        finally:
            for f in files:
                f.close()


class ParametersTest(unittest.TestCase):
    def test_the_parameters_are_what_the_flat_functions_answer(self):
        path = test_file("quillon_force.qdf")
        with datasource.open(path) as f, Flat(path) as flat:
            parameters = f.parameters
            self.assertEqual(parameters["scan_size"], flat.double("GetScanSize", 0))
            self.assertEqual(parameters["scan_size_unit"], flat.text("GetScanSizeUnit", 0))
            self.assertEqual(parameters["poisson_ratio"], flat.double("GetPoissonRatio"))
            self.assertEqual(parameters["tip_radius"], flat.double("GetTipRadius"))
            self.assertEqual(parameters["spring_constant"], flat.double("GetForceSpringConstant", 0))
            self.assertEqual(parameters["hold_points"], flat.int("GetNumberOfHoldPoints", 0))
            self.assertEqual(parameters["points_per_curve"], flat.int("GetNumberOfPointsPerCurve", 0))
            # Values that a force file does not have are left out, not made up.
            self.assertNotIn("forces_per_line", parameters)
            self.assertNotIn("segment_count", parameters)

    def test_a_force_volume_has_its_curve_count_and_a_script_its_segments(self):
        with datasource.open(test_file("quillon_fvol.qdf")) as f:
            self.assertEqual(f.parameters["forces_per_line"], f.forces_per_line)
        with datasource.open(test_file("quillon_script.qdf")) as f:
            self.assertEqual(f.parameters["segment_count"], len(f.segments))

    def test_force_values_are_in_nanonewtons(self):
        self.assertEqual(datasource.force_units(), "nN")


if __name__ == "__main__":
    unittest.main()

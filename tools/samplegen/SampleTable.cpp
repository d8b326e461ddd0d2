#include "tools/samplegen/SampleTable.h"

#include "tools/samplegen/HarlenSamples.h"
#include "tools/samplegen/QuillonSamples.h"
#include "tools/samplegen/TefSamples.h"

namespace SampleGen {

// The family of a file is told by its type text, never by its extension;
// the extensions here only help a person.
const std::vector<Sample>& Samples()
{
    static const std::vector<Sample> samples{
        {"grating.tef", "calibration grating, 512 x 512: topography in nm and phase in deg, 2-byte pixels",
         TefSamples::WriteGrating},
        {"grating_12bit.tef", "calibration grating, 256 x 256 topography, 4-byte pixels with 12 bits in use",
         TefSamples::WriteGrating12Bit},
        {"quillon_image.qdf", "Quillon IMAGE: particles and fibres on mica, height and phase, 256 x 256, 2-byte",
         QuillonSamples::WriteImage},
        {"quillon_image_32bit.qdf", "Quillon IMAGE: the same sample scanned again, 4-byte samples, release 9.2",
         QuillonSamples::WriteImage32},
        {"quillon_force.qdf", "Quillon FORCE: a curve into a soft polymer with adhesion and a 0.5 s hold",
         QuillonSamples::WriteForce},
        {"quillon_fvol.qdf", "Quillon FVOL: 16 x 16 curves over stiff domains in a soft matrix",
         QuillonSamples::WriteForceVolume},
        {"quillon_fvol_capture.qdf", "Quillon FVOL with the crest load capture on: 8 x 8 sine-cycle curves",
         QuillonSamples::WriteForceVolumeCapture},
        {"quillon_script.qdf", "Quillon SCRIPT: extend, hold Z while the polymer relaxes, retract",
         QuillonSamples::WriteScript},
        {"quillon_hsdc.qdf", "Quillon HSDC: one peak force tapping cycle at 6.25 MHz, deflection and Z",
         QuillonSamples::WriteHighSpeed},
        {"quillon_timed.qdf", "Quillon TIMED: strip chart of a parked tip's height, 64 x 256 samples at 200 Hz",
         QuillonSamples::WriteTimed},
        {"quillon_ecafm.qdf", "Quillon ECAFM: copper islands on gold, height and current, and a voltammogram",
         QuillonSamples::WriteElectrochemistry},
        {"harlen_image.hdf", "Harlen IMAGE: lipid bilayer patches and vesicles on mica, float heights in nm",
         HarlenSamples::WriteImage},
        {"harlen_force_8labels.hdf", "Harlen FORCE: 512 ramp positions into a membrane, Z and deflection",
         HarlenSamples::WriteForce8},
        {"harlen_force_16labels.hdf", "Harlen FORCE: the same with force and lateral signal (16 labels)",
         HarlenSamples::WriteForce16},
    };
    return samples;
}

}  // namespace SampleGen

#include "tools/samplegen/SampleTable.h"

#include "tools/samplegen/TefSamples.h"

namespace SampleGen {

const std::vector<Sample>& Samples()
{
    static const std::vector<Sample> samples{
        {"grating.tef", "calibration grating, 512 x 512: topography in nm and phase in deg, 2-byte pixels",
         TefSamples::WriteGrating},
        {"grating_12bit.tef", "calibration grating, 256 x 256 topography, 4-byte pixels with 12 bits in use",
         TefSamples::WriteGrating12Bit},
    };
    return samples;
}

}  // namespace SampleGen

#pragma once

#include <string>

namespace SampleGen {

// The Quillon samples, one of each subtype that a host meets most, each a
// physically plausible acquisition written through the sample kit's builder.
class QuillonSamples {
public:
    // Images: gold particles and two fibres on a tilted mica step, height and
    // phase over 2 um, 256 x 256.
    static void WriteImage(const std::string& path);    // 2-byte samples, release 8.15
    static void WriteImage32(const std::string& path);  // 4-byte samples, release 9.2

    // Force: one curve into a soft polymer with adhesion, deflection and
    // height sensor, with a hold at the end of the ramp.
    static void WriteForce(const std::string& path);
    // Force volume: 16 x 16 curves over stiff domains in a soft matrix.
    static void WriteForceVolume(const std::string& path);
    // Force volume with the crest load capture on: 8 x 8 curves recorded as
    // cycles of a sine, read back against the capture's synthetic Z.
    static void WriteForceVolumeCapture(const std::string& path);
    // Script: extend, hold Z while the sample relaxes, retract.
    static void WriteScript(const std::string& path);

    // High-speed capture: two tapping cycles' worth of deflection and Z.
    static void WriteHighSpeed(const std::string& path);
    // Strip chart: the height of a tip parked on a protein layer, over time.
    static void WriteTimed(const std::string& path);
    // Electrochemistry with an AFM: copper islands on gold, height and
    // current images, and a cyclic voltammogram.
    static void WriteElectrochemistry(const std::string& path);
};

}  // namespace SampleGen

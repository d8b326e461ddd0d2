#pragma once

namespace SampleGen {

// A spherical tip on a cantilever pressed into an elastic sample and pulled
// off again, step by step as the scanner moves: Hertzian contact, a weak
// attraction on the way in, and on the way out an adhesive neck that
// stretches until it snaps. Lengths are in nm and forces in nN, so that a
// spring constant in N/m is nN/nm.
//
//   ContactModel tip(probe, sample);
//   tip.StartApproach();
//   for (double z : ramp) deflections.push_back(tip.Step(z));
//   tip.StartRetract();
//   ...
//
// Z grows towards the sample: contact begins where Z passes the sample's
// surface, and a positive deflection bends the lever away from the sample.
class ContactModel {
public:
    struct Probe {
        double tipRadiusNm = 20.0;
        double springNPerM = 0.4;
    };
    struct Sample {
        double surfaceZNm = 200.0;         // scanner Z where the undeflected tip touches
        double reducedModulusPa = 50e6;
        double attractionNN = 0.5;         // pull of the surface at touch-down
        double attractionRangeNm = 2.0;
        double adhesionNN = 4.0;           // pull-off force of the neck
        double neckNm = 8.0;               // how far the neck stretches before it snaps
    };

    ContactModel(Probe probe, Sample sample);

    void StartApproach();
    // Pulling back: a tip that touched stays attached through its neck.
    void StartRetract();
    // Slow relaxation of a viscoelastic sample: the modulus as a fraction
    // of the instantaneous one.
    void SetRelaxation(double modulusFraction) { relaxation_ = modulusFraction; }

    // The deflection of the lever, in nm, with the scanner at z.
    double Step(double zNm);
    // The force on the tip for a deflection, in nN.
    double Force(double deflectionNm) const { return probe_.springNPerM * deflectionNm; }
    // How far the tip is pushed into the sample: Z past the surface less the
    // deflection; negative out of contact.
    double Indentation(double zNm, double deflectionNm) const { return zNm - sample_.surfaceZNm - deflectionNm; }

private:
    enum class Law { Approach, Attached, Free };

    double Hertz(double indentationNm) const;
    double ForceAt(double indentationNm, Law law) const;
    // The deflection at which the lever's spring balances the force of the
    // law; unique because every law rises less steeply than the spring.
    double Balance(double zNm, Law law) const;

    Probe probe_;
    Sample sample_;
    Law law_ = Law::Approach;
    bool touched_ = false;
    double relaxation_ = 1.0;
};

}  // namespace SampleGen

#include "tools/samplegen/ContactModel.h"

#include <algorithm>
#include <cmath>

namespace SampleGen {

ContactModel::ContactModel(Probe probe, Sample sample) : probe_(probe), sample_(sample)
{
    // The attraction may not pull harder than the spring holds, or the
    // approach would jump and the balance would not be unique.
    const double steepest = sample_.attractionNN / sample_.attractionRangeNm;
    if (steepest > 0.8 * probe_.springNPerM)
        sample_.attractionRangeNm = sample_.attractionNN / (0.8 * probe_.springNPerM);
    sample_.adhesionNN = std::max(sample_.adhesionNN, sample_.attractionNN);
}

void ContactModel::StartApproach()
{
    law_ = Law::Approach;
    touched_ = false;
}

void ContactModel::StartRetract() { law_ = touched_ ? Law::Attached : Law::Free; }

double ContactModel::Hertz(double indentationNm) const
{
    // F = 4/3 E* sqrt(R) d^3/2; with E* in Pa and lengths in nm the force
    // comes out in units of 1e9 nN.
    const double d = std::max(indentationNm, 0.0);
    return 4.0 / 3.0 * sample_.reducedModulusPa * relaxation_ * std::sqrt(probe_.tipRadiusNm * d * d * d) * 1e-9;
}

double ContactModel::ForceAt(double indentationNm, Law law) const
{
    // A positive force pushes the lever up; the surface's pull is negative.
    if (indentationNm >= 0.0 && law != Law::Free)
        return Hertz(indentationNm) - sample_.attractionNN;
    if (law == Law::Attached) {
        const double stretch = -indentationNm / sample_.neckNm;
        return -sample_.attractionNN - (sample_.adhesionNN - sample_.attractionNN) * stretch;
    }
    return -sample_.attractionNN * std::exp(std::min(indentationNm, 0.0) / sample_.attractionRangeNm);
}

double ContactModel::Balance(double zNm, Law law) const
{
    const double k = probe_.springNPerM;
    // Below: the spring pulls harder than any force of the laws; above: it
    // pushes harder than the sample can at this Z.
    double low = -(sample_.adhesionNN + 1.0) / k;
    double high = (Hertz(zNm - sample_.surfaceZNm) + 1.0) / k;
    for (int i = 0; i < 200 && high - low > 1e-9; ++i) {
        const double middle = 0.5 * (low + high);
        if (k * middle - ForceAt(Indentation(zNm, middle), law) < 0.0)
            low = middle;
        else
            high = middle;
    }
    return 0.5 * (low + high);
}

double ContactModel::Step(double zNm)
{
    double deflection = Balance(zNm, law_);
    if (law_ == Law::Approach && Indentation(zNm, deflection) >= 0.0)
        touched_ = true;
    if (law_ == Law::Attached && Indentation(zNm, deflection) < -sample_.neckNm) {
        // The neck snaps: from here on the tip hangs free.
        law_ = Law::Free;
        deflection = Balance(zNm, law_);
    }
    return deflection;
}

}  // namespace SampleGen

// The contact model behind every force sample: the balance of spring and
// sample holds at every step, the tip pulls off at the adhesion force and
// snaps free, and the sample's relaxation lowers the force.

#include "tools/samplegen/ContactModel.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using SampleGen::ContactModel;

constexpr ContactModel::Probe kProbe{20.0, 0.4};

ContactModel::Sample Polymer()
{
    return {.surfaceZNm = 100.0, .reducedModulusPa = 50e6, .attractionNN = 0.5, .attractionRangeNm = 2.0,
            .adhesionNN = 4.0, .neckNm = 8.0};
}

// The Hertzian force of an indentation, written out again: 4/3 E* sqrt(R d^3).
double HertzNN(double modulusPa, double radiusNm, double indentationNm)
{
    const double meters = 1e-9;
    return 4.0 / 3.0 * modulusPa * std::sqrt(radiusNm * meters * std::pow(indentationNm * meters, 3.0)) * 1e9;
}

TEST(ContactModelTest, FarFromTheSampleTheLeverIsStraight)
{
    ContactModel tip(kProbe, Polymer());
    tip.StartApproach();
    for (double z = 0.0; z < 80.0; z += 5.0)
        EXPECT_NEAR(tip.Step(z), 0.0, 1e-3) << z;
}

TEST(ContactModelTest, InContactTheSpringBalancesTheHertzianForce)
{
    ContactModel tip(kProbe, Polymer());
    tip.StartApproach();
    for (double z = 0.0; z <= 180.0; z += 1.0) {
        const double d = tip.Step(z);
        const double indentation = tip.Indentation(z, d);
        if (indentation <= 0.0)
            continue;
        EXPECT_NEAR(tip.Force(d), HertzNN(50e6, 20.0, indentation) - 0.5, 1e-6) << z;
    }
    // deep in contact the lever bends and the sample gives way, both
    const double d = tip.Step(180.0);
    EXPECT_GT(d, 10.0);
    EXPECT_GT(tip.Indentation(180.0, d), 5.0);
}

TEST(ContactModelTest, TheRetractPullsOffAtTheAdhesionAndSnapsFree)
{
    ContactModel tip(kProbe, Polymer());
    tip.StartApproach();
    for (double z = 0.0; z <= 150.0; z += 0.5)
        tip.Step(z);
    tip.StartRetract();
    double lowest = 0.0, previous = tip.Step(150.0), biggestJump = 0.0;
    for (double z = 150.0; z >= 0.0; z -= 0.25) {
        const double d = tip.Step(z);
        lowest = std::min(lowest, d);
        biggestJump = std::max(biggestJump, d - previous);
        previous = d;
    }
    // the neck holds up to the adhesion force, 4 nN on a 0.4 N/m lever
    EXPECT_NEAR(lowest, -4.0 / 0.4, 0.2);
    EXPECT_GT(biggestJump, 8.0);
    EXPECT_NEAR(previous, 0.0, 1e-3);
}

TEST(ContactModelTest, TheApproachNeverJumpsAndATipThatNeverTouchedHasNoNeck)
{
    // an attraction steeper than the spring would make the approach jump;
    // the model keeps it gentler
    ContactModel::Sample sticky = Polymer();
    sticky.attractionNN = 2.0;
    sticky.attractionRangeNm = 0.5;
    ContactModel tip(kProbe, sticky);
    tip.StartApproach();
    double previous = tip.Step(0.0);
    for (double z = 0.0; z <= 120.0; z += 0.1) {
        const double d = tip.Step(z);
        EXPECT_LT(std::abs(d - previous), 1.0) << z;
        previous = d;
    }
    ContactModel free(kProbe, Polymer());
    free.StartApproach();
    free.Step(50.0);
    free.StartRetract();
    EXPECT_NEAR(free.Step(40.0), 0.0, 1e-3);
}

TEST(ContactModelTest, RelaxationLowersTheForceAtTheSameZ)
{
    ContactModel tip(kProbe, Polymer());
    tip.StartApproach();
    for (double z = 0.0; z <= 160.0; z += 1.0)
        tip.Step(z);
    const double before = tip.Step(160.0);
    tip.SetRelaxation(0.7);
    const double after = tip.Step(160.0);
    EXPECT_LT(after, before);
    EXPECT_GT(after, 0.5 * before);
}

}  // namespace

#pragma once

#include "tools/dstool/CurvePlot.h"
#include "tools/dstool/DataUnits.h"

#include <optional>
#include <string>
#include <vector>

namespace Dstool {

struct CurveRequest {
    std::optional<int> index{};      // a force volume's curve, a script's segment
    std::optional<int> channel{};    // 0 unless given
    DataUnits units = DataUnits::Metric;
};

// A curve of the file the library has open, chosen by the file's kind: the
// two halves of a force curve (against point index, or against the capture's
// synthetic Z where the crest load capture is on), a curve of a force volume
// by its index, script segments against time, or a high-speed channel
// against time, its two halves apart.
class CurveReader {
public:
    struct Curve {
        std::string what;  // "force volume curve 17", for the title
        std::string xLabel;
        std::string yLabel;
        std::vector<CurvePlot::Series> series;
    };

    // Raises std::runtime_error telling why the file has no such curve.
    static Curve Read(const CurveRequest& request);

private:
    static Curve ForceCurve(const CurveRequest& request);
    static Curve VolumeCurve(const CurveRequest& request);
    static Curve ScriptSegments(const CurveRequest& request);
    static Curve HighSpeed(const CurveRequest& request);

    // "Deflection Error (nm)": the channel's name and the unit of the values.
    static std::string ValueLabel(int channel, DataUnits units);
    // How many values a reader wrote into a buffer that was filled with NaN:
    // some readers tell a count only by writing it.
    static std::size_t Written(const std::vector<double>& buffer);
    // The approach and retract halves, against the capture's Z when it is
    // on and against point index otherwise.
    static void AddHalves(Curve& curve, std::vector<double> first, std::vector<double> second);
};

}  // namespace Dstool

// Readers of images and of the descriptive values of channels.

#include "DataSourceDll/DataSourceReaders.h"

#include "QlDataAnalysisExt/Core/IOLDataSource.h"
#include "QlDataAnalysisExt/Core/OLDataItem.h"

#include <cstring>

namespace DataSourceReaders {

bool InTable(IOLDataSource& s, int c) { return c >= 0 && s.GetDataItem(static_cast<unsigned>(c)) != nullptr; }

double ImageFactor(IOLDataSource& s, int c, ScanUnits units) {
    const auto channel = static_cast<unsigned>(c);
    const double r = s.GetRawRange(channel);
    if (units == ScanUnitsMetric && r != 0.0) {
        return static_cast<double>(s.GetZScaleInSwUnits(channel)) / r;
    }
    if (units == ScanUnitsVolts && r != 0.0) {
        return static_cast<double>(s.GetZScaleInHwUnits(channel)) / r;
    }
    return 1.0;
}

double ForceFactor(IOLDataSource& s, int c, ScanUnits units, bool allowForce) {
    const auto channel = static_cast<unsigned>(c);
    const float scaling = s.GetScalingFactor(channel);
    // The quotient is formed in single precision, as the scales are floats.
    auto quotient = [scaling](float scale) { return scaling != 0.0f ? static_cast<double>(scale / scaling) : 1.0; };
    switch (units) {
        case ScanUnitsMetric:
            return quotient(s.GetZScaleInSwUnits(channel));
        case ScanUnitsVolts:
            return quotient(s.GetZScaleInHwUnits(channel));
        case ScanUnitsForce:
            if (allowForce) {
                return quotient(s.GetZScaleInSwUnits(channel)) * s.GetForceSpringConstant(channel);
            }
            return 1.0;
        default:
            return 1.0;
    }
}

namespace {

// The image reader with a chosen factor rule: count first, so that a short
// buffer still tells the caller what it needs.
int readImage(IOLDataSource& s, int c, double* out, int bufferSize, int* count, double factor) {
    if (!out || !count || !s.IsImageFile() || !InTable(s, c)) {
        return -1;
    }
    const auto channel = static_cast<unsigned>(c);
    const std::uint32_t n = s.GetDataBufferSize(channel);
    *count = static_cast<int>(n);
    if (static_cast<long long>(bufferSize) < static_cast<long long>(n)) {
        return -1;
    }
    const std::int32_t* d = s.GetData(channel);
    if (!d) {
        return n == 0 ? 1 : -1;
    }
    for (std::uint32_t i = 0; i < n; ++i) {
        out[i] = static_cast<double>(d[i]) * factor;
    }
    return 1;
}

template <class T, class Get>
int readValue(T* out, Get get) {
    if (!out) {
        return -1;
    }
    *out = get();
    return 1;
}

template <class T, class Get>
int readChannelValue(IOLDataSource& s, int c, T* out, Get get) {
    if (!out || !InTable(s, c)) {
        return -1;
    }
    *out = get(static_cast<unsigned>(c));
    return 1;
}

}  // namespace

int GetImageData(IOLDataSource& s, int c, double* out, int bufferSize, int* count, ScanUnits units) {
    return readImage(s, c, out, bufferSize, count, ImageFactor(s, c, units));
}

int GetRawImageData(IOLDataSource& s, int c, double* out, int bufferSize, int* count) {
    return readImage(s, c, out, bufferSize, count, 1.0);
}

int GetExportScalingFactor(IOLDataSource& s, int c, double* out, bool metric) {
    if (!out || !InTable(s, c)) {
        return -1;
    }
    const auto channel = static_cast<unsigned>(c);
    const double r = s.GetRawRange(channel);
    if (r == 0.0) {
        return -1;
    }
    const double scale = metric ? s.GetZScaleInSwUnits(channel) : s.GetZScaleInHwUnits(channel);
    *out = scale / r;
    return 1;
}

int GetScalingFactor(IOLDataSource& s, int c, double* out, bool metric) {
    if (!out || !InTable(s, c)) {
        return -1;
    }
    const auto channel = static_cast<unsigned>(c);
    const float scaling = s.GetScalingFactor(channel);
    if (scaling == 0.0f) {
        return -1;
    }
    const float scale = metric ? s.GetZScaleInSwUnits(channel) : s.GetZScaleInHwUnits(channel);
    *out = static_cast<double>(scale / scaling);
    return 1;
}

int GetNumberOfChannels(IOLDataSource& s, int* out) {
    return readValue(out, [&] { return s.GetNumberOfChannels(); });
}
int GetNumberOfLines(IOLDataSource& s, int c, int* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return static_cast<int>(s.GetNumberOfLines(ch)); });
}
int GetSamplesPerLine(IOLDataSource& s, int c, int* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return static_cast<int>(s.GetSamplesPerLine(ch)); });
}
int GetDataBufferSize(IOLDataSource& s, int c, int* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return static_cast<int>(s.GetDataBufferSize(ch)); });
}
int GetZScaleInSwUnits(IOLDataSource& s, int c, double* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return static_cast<double>(s.GetZScaleInSwUnits(ch)); });
}
int GetZScaleInHwUnits(IOLDataSource& s, int c, double* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return static_cast<double>(s.GetZScaleInHwUnits(ch)); });
}
int GetZSensitivitySoftScale(IOLDataSource& s, int c, double* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return s.GetZSensitivitySoftScale(ch); });
}
int GetForceSpringConstant(IOLDataSource& s, int c, double* out) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return s.GetForceSpringConstant(ch); });
}

int GetZSensitivityUnits(IOLDataSource& s, int c, char* out, long long bufferSize) {
    if (!out || !InTable(s, c)) {
        return -1;
    }
    const std::string text = s.GetZSensitivityUnits(static_cast<unsigned>(c));
    // A negative size stands for "as large as the text", the contract of the
    // plain export; the safe one passes its real size.
    if (bufferSize >= 0 && static_cast<unsigned long long>(bufferSize) < text.size() + 1) {
        return -1;
    }
    std::memcpy(out, text.c_str(), text.size() + 1);
    return 1;
}

// Record values that the exports read through channel 0.
int GetPoissonRatio(IOLDataSource& s, double* out) {
    return readValue(out, [&] { return s.GetPoissonRatio(0); });
}
int GetTipRadius(IOLDataSource& s, double* out) {
    return readValue(out, [&] { return s.GetTipRadius(0); });
}
int GetHalfAngle(IOLDataSource& s, double* out) {
    return readValue(out, [&] { return s.GetHalfAngle(0); });
}

// The channel argument of these is accepted and has no effect.
int GetScanSize(IOLDataSource& s, int, double* out) {
    return readValue(out, [&] { return s.GetScanSize().GetValue(); });
}
int GetForceSamplesPerLine(IOLDataSource& s, int, int* out) {
    return readValue(out, [&] { return s.GetForceSamplesPerLine(); });
}
int GetNumberOfTracePoints(IOLDataSource& s, int, int* out) {
    return readValue(out, [&] { return s.GetNumberOfTracePoints(); });
}

int GetRampSize(IOLDataSource& s, int c, double* out, bool scaled) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return s.GetRampSize(ch, scaled).GetValue(); });
}
int GetForwardRampVelocity(IOLDataSource& s, int c, double* out, bool scaled) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return s.GetForwardRampVelocity(ch, scaled); });
}
int GetReverseRampVelocity(IOLDataSource& s, int c, double* out, bool scaled) {
    return readChannelValue(s, c, out, [&](unsigned ch) { return s.GetReverseRampVelocity(ch, scaled); });
}

int GetImageAspectRatio(IOLDataSource& s, int c, double* out) {
    if (!out || !s.IsImageFile()) {
        return -1;
    }
    *out = 1.0;
    if (c >= 0 && c < s.GetNumberOfChannels() && InTable(s, c)) {
        *out = s.GetChannelAspectRatio(static_cast<unsigned>(c));
    }
    return 1;
}

int GetPlanefitSettings(IOLDataSource& s, int c, double* a, double* b, double* c2, int* order) {
    if (!a || !b || !c2 || !order || !InTable(s, c)) {
        return -1;
    }
    const PlaneFitSettings fit = s.GetPlanefitSettings(static_cast<unsigned>(c));
    *a = fit.a;
    *b = fit.b;
    *c2 = fit.c;
    *order = static_cast<int>(fit.order);
    return 1;
}

bool GetDataScaleUnits(IOLDataSource& s, int c, bool metric, std::string& out) {
    if (!InTable(s, c)) {
        return false;
    }
    const auto channel = static_cast<unsigned>(c);
    // The metric unit is named after the product of scale and sensitivity.
    out = metric ? s.GetDataScale(channel, true).GetUnits()->GetName() : s.GetDataScaleName(channel);
    return true;
}

bool GetDataTypeDesc(IOLDataSource& s, int c, std::string& out) {
    if (!InTable(s, c)) {
        return false;
    }
    out = s.GetDataTypeDesc(static_cast<unsigned>(c));
    return true;
}

bool GetLineDirection(IOLDataSource& s, int c, std::string& out) {
    if (!InTable(s, c)) {
        return false;
    }
    out = s.GetLineDirection(static_cast<unsigned>(c));
    return true;
}

bool GetScanLine(IOLDataSource& s, int c, std::string& out) {
    if (!InTable(s, c)) {
        return false;
    }
    out = s.GetScanLine(static_cast<unsigned>(c));
    return true;
}

bool GetScanSizeUnit(IOLDataSource& s, int, std::string& out) {
    out = s.GetScanSize().GetUnits()->GetName();
    return true;
}

bool GetRampUnits(IOLDataSource& s, int c, bool scaled, std::string& out) {
    if (!InTable(s, c)) {
        return false;
    }
    out = s.GetRampSize(static_cast<unsigned>(c), scaled).GetUnits()->GetName();
    return true;
}

bool GetForceSweepChannel(IOLDataSource& s, int, std::string& out) {
    out = s.GetForceSweepChannel();
    return true;
}

}  // namespace DataSourceReaders

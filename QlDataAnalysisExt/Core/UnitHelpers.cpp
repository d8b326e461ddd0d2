#include "QlDataAnalysisExt/Core/UnitHelpers.h"

Orx::Core::UnitDescriptorPtr UnitNamed(const std::string& name) {
    if (name.empty()) {
        return UValue().GetUnits();
    }
    return UValue(0.0, name).GetUnits();
}

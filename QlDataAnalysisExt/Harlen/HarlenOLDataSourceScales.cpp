// Scale and sensitivity changes of a Harlen source, and the parameters it
// shows. A change of scale also marks the item, so that a host knows its
// values no longer follow the file.

#include <utility>

#include "Platform/AssertFailed.h"
#include "Platform/DataCore/DataFile.h"
#include "QlDataAnalysisExt/Core/UnitHelpers.h"
#include "QlDataAnalysisExt/Harlen/HarlenNumbers.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "QlDataAnalysisExt/Harlen/HarlenValueTexts.h"
#include "QlDataAnalysisExt/Quillon/QlScaleTexts.h"

using HarlenNumbers::NarrowToFloat;

void HarlenOLDataSource::SetZSensitivity(unsigned channel, double value, std::string units, bool) {
    OLDataItem* item = writeItem(channel);
    if (!item) {
        return;
    }
    // The deflection of a force file is given in nanometres per volt, and only
    // its soft scale follows a change.
    if (fileSubType == "FORCE" && item->GetDataTypeDesc().find("Defl") != std::string::npos) {
        if (units.empty()) {
            units = "nm";
        }
        if (units == "nm" && value != item->GetZSensitivitySoftScale()) {
            item->SetZSensitivitySoftScale(value);
            item->SetZSensitivityUnits("nm");
            item->SetZScaleInSwUnits(NarrowToFloat(static_cast<double>(item->GetZScaleInHwUnits()) * value));
        }
        return;
    }

    const UValue hard(item->GetZScaleInHwUnits(), UnitNamed(item->GetDataScaleName()));
    const UValue sensitivity(value, UnitNamed(units));
    item->SetZScaleInSwUnits(NarrowToFloat(OLDataItem::MultiplyBySensitivity(hard, sensitivity).GetValue()));
    item->SetSensitivityText(
        QlScaleTexts::WithSensitivity(item->GetSensitivityText(), static_cast<float>(value), units));
    item->SetZSensitivitySoftScale(value);
    item->SetZSensitivityUnits(std::move(units));
    item->ResetForceZOffsetSensitivity();
    item->SetItemFlag2(true);
    zTransferUnit = item->GetZSensitivityUnits() + "/" + item->GetDataScaleName();
}

void HarlenOLDataSource::SetDataScale(unsigned channel, UValue& value, bool flag) {
    OLDataItem* item = writeItem(channel);
    if (!item) {
        return;
    }
    const UValue current = item->GetDataScale(flag);
    if (current.GetUnits()->GetName() != value.GetUnits()->GetName()) {
        Orx::Core::AssertFailed("dataScalecurrent.GetUnits()->GetName() == dataScaleNew.GetUnits()->GetName()",
                                "HarlenOLDataSource::SetDataScale");
    }
    // The magnify follows the scale, so that what is shown keeps its size.
    const double ratio = HarlenNumbers::Quotient(value.GetValue(), current.GetValue());
    if (ratio != 0.0) {
        item->SetZMagnify(NarrowToFloat(item->GetZMagnify() * ratio));
    }
    item->SetDataScale(value, flag);
}

void HarlenOLDataSource::SetChannelParameters(unsigned channel, float factor) {
    OLDataItem* item = writeItem(channel);
    if (!item || factor == 0.0f) {
        return;
    }
    item->SetZScaleInHwUnits(item->GetZScaleInHwUnits() / factor);
    item->SetZScaleInSwUnits(item->GetZScaleInSwUnits() / factor);
    item->SetItemValue(item->GetItemValue() * factor);
    item->SetItemFlag2(true);

    dataRange.SetValue(dataRange.GetValue() / factor);
    try {
        item->SetDataScale(dataRange, false);
    } catch (const Orx::Core::LogicError&) {
        // a range of another kind of unit than the item's scale leaves the scale
    }
    item->SetItemFlag2(true);
}

void HarlenOLDataSource::RemoveChannel(unsigned) {}

std::vector<std::string> HarlenOLDataSource::GetDataPlistNames() {
    return isHarlenDataFile(dataFile) ? dataFile->GetPlistNames() : std::vector<std::string>();
}

std::string HarlenOLDataSource::GetParameterListForItem(const std::string& sectionName, const std::string& key) {
    const auto container = section(sectionName);
    if (!container || !container->HasKey(key) || !isHarlenDataFile(dataFile)) {
        return {};
    }
    return dataFile->GetFormattedValueString(container, key);
}

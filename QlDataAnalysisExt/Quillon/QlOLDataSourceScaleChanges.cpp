// Changes of a channel's scales: its data scale, its hardware scale by a
// factor, and its sensitivity. Each keeps the value strings of the item in
// step with the numbers, because a save writes the strings and a reader reads
// the numbers back from them.

#include "QlDataAnalysisExt/Quillon/QlOLDataSource.h"

#include "Platform/AssertFailed.h"
#include "QlDataAnalysisExt/Quillon/QlScaleTexts.h"

#include <utility>

void QlOLDataSource::MagnifyChannel(OLDataItem& item, float factor) {
    const float magnify = item.GetZMagnify() * factor;
    item.SetZMagnify(magnify);
    item.SetMagnifyText(QlScaleTexts::WithMagnify(item.GetMagnifyText(), magnify));
}

void QlOLDataSource::SetDataScale(unsigned channel, UValue& value, bool flag) {
    OLDataItem* item = writeItem(channel);
    if (!item) {
        return;
    }
    const UValue current = item->GetDataScale(true);
    try {
        item->SetDataScale(value, flag);
    } catch (const Orx::Core::LogicError&) {
        // A scale in a unit that does not convert into the channel's is the
        // same mistake the comparison below reports; the channel is left as it was.
        Orx::Core::AssertFailed("dataScalecurrent.GetUnits()->GetName() == dataScaleNew.GetUnits()->GetName()",
                                "QlOLDataSource::SetDataScale");
        return;
    }
    const UValue changed = item->GetDataScale(true);
    value = changed;
    if (current.GetUnits()->GetName() != changed.GetUnits()->GetName()) {
        Orx::Core::AssertFailed("dataScalecurrent.GetUnits()->GetName() == dataScaleNew.GetUnits()->GetName()",
                                "QlOLDataSource::SetDataScale");
    }
    // The magnify takes up the change, so that what is shown keeps its size;
    // a scale of nothing has no ratio to take up.
    if (changed.GetValue() != 0.0) {
        MagnifyChannel(*item, static_cast<float>(current.GetValue() / changed.GetValue()));
    }
}

void QlOLDataSource::SetChannelParameters(unsigned channel, float factor) {
    OLDataItem* item = writeItem(channel);
    if (!item || !(factor > 0.0f)) {
        return;
    }
    const float hard = item->GetZScaleInHwUnits() / factor;
    item->SetZScaleInHwUnits(hard);
    item->SetScalingFactor(item->GetScalingFactor() / factor);
    item->SetZScaleInSwUnits(item->GetZScaleInSwUnits() / factor);
    // The Z text carries both numbers: the scale behind ") " and, in its
    // parentheses, the value of one count.
    const std::string zText = QlScaleTexts::WithSoftValue(item->GetZText(), hard);
    item->SetZText(QlScaleTexts::WithHardValue(zText, hard / GetRawRange(channel)));
    MagnifyChannel(*item, factor);
    UValue scale = ValueIn(static_cast<double>(item->GetZScaleInHwUnits()) * item->GetZMagnify(),
                           item->GetDataScaleName());
    SetDataScale(channel, scale, false);
}

void QlOLDataSource::TakeSensitivity(OLDataItem& item, float softScale, const std::string& text, double value,
                                     const std::string& units) {
    item.SetZScaleInSwUnits(softScale);
    item.SetSensitivityText(text);
    item.SetZSensitivitySoftScale(value);
    item.SetZSensitivityUnits(units);
    item.ResetForceZOffsetSensitivity();
}

void QlOLDataSource::SetZSensitivity(unsigned channel, double value, std::string units, bool companions) {
    OLDataItem* item = writeItem(channel);
    if (!item) {
        return;
    }
    const UValue hard = ValueIn(item->GetZScaleInHwUnits(), item->GetDataScaleName());
    const auto softScale = static_cast<float>(CombineScales(ValueIn(value, units), hard).GetValue());
    const std::string text =
        QlScaleTexts::WithSensitivity(item->GetSensitivityText(), static_cast<float>(value), units);
    TakeSensitivity(*item, softScale, text, value, units);
    if (!companions) {
        return;
    }
    // Channels that name the same sensitivity in the same section share it.
    const std::string section = item->GetZSensitivitySection();
    const std::string name = item->GetZSensitivityName();
    for (std::size_t other = 0; other < items.size(); ++other) {
        OLDataItem& companion = items[other];
        if (other != channel && companion.GetZSensitivitySection() == section &&
            companion.GetZSensitivityName() == name) {
            TakeSensitivity(companion, softScale, text, value, units);
        }
    }
}

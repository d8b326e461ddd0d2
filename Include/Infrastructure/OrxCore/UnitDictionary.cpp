#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace Orx::Core {

struct UnitDictionary::Impl {
    std::vector<UnitDescriptorPtr> units;  // in the order added
    std::unordered_map<std::string, UnitDescriptorPtr> byText;

    void Know(const std::string& text, const UnitDescriptorPtr& unit) {
        if (!text.empty()) {
            byText.emplace(text, unit);
        }
    }
};

namespace {

// Symbols of the bases, in the order of UnitBase, for units that the
// dictionary has no standard spelling of.
constexpr const char* kBaseSymbols[] = {
    "m", "kg", "s", "A", "K", "rad", "log(Arb)", "log(Pa)", "log(A)", "log(A/m^2)", "log(Ohm)", "log",
};
static_assert(std::size(kBaseSymbols) == static_cast<std::size_t>(UnitBase::Count_));

std::string SymbolOfDimension(const UnitDimension& dimension) {
    std::string text;
    for (std::size_t i = 0; i < dimension.size(); ++i) {
        const int exponent = dimension[i];
        if (exponent == 0) {
            continue;
        }
        if (!text.empty()) {
            text += '*';
        }
        text += kBaseSymbols[i];
        if (exponent != 1) {
            text += '^' + std::to_string(exponent);
        }
    }
    return text.empty() ? std::string("1") : text;
}

}  // namespace

UnitDictionary::UnitDictionary() : impl_(std::make_unique<Impl>()) {}

UnitDictionary::~UnitDictionary() = default;

void UnitDictionary::Add(UnitDescriptorPtr unit, std::initializer_list<const char*> furtherSpellings) {
    if (!unit) {
        return;
    }
    impl_->units.push_back(unit);
    impl_->Know(unit->GetName(), unit);
    impl_->Know(unit->GetAbbreviation(), unit);
    for (const char* spelling : furtherSpellings) {
        if (spelling != nullptr) {
            impl_->Know(spelling, unit);
        }
    }
}

bool UnitDictionary::IsUnitDefined(const std::string& text) const {
    return impl_->byText.count(text) != 0;
}

UnitDescriptorPtr UnitDictionary::LookupUnit(const std::string& text) const {
    const auto found = impl_->byText.find(text);
    return found == impl_->byText.end() ? nullptr : found->second;
}

UnitDescriptorPtr UnitDictionary::LookupDimensionallyEquivalentUnit(const std::string& text) const {
    const UnitDescriptorPtr unit = LookupUnit(text);
    if (!unit) {
        return nullptr;
    }
    for (const UnitDescriptorPtr& candidate : impl_->units) {
        if (candidate->IsDimensionallyEquivalent(*unit) && candidate->GetFactor() == 1.0 &&
            candidate->GetOffset() == 0.0) {
            return candidate;
        }
    }
    const std::string symbol = SymbolOfDimension(unit->GetDimension());
    return std::make_shared<const UnitDescriptor>(symbol, symbol, unit->GetDimension(), 1.0);
}

}  // namespace Orx::Core

#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include <boost/format.hpp>

#include <mutex>
#include <new>
#include <utility>

namespace Orx::Core {

namespace {

const char* const kCategory = "Orx.Core.UnitizedValue";

std::mutex& globalDictionaryMutex() {
    static std::mutex m;
    return m;
}

std::shared_ptr<UnitDictionary>& globalDictionary() {
    static std::shared_ptr<UnitDictionary> dictionary;
    return dictionary;
}

UnitDescriptorPtr MakeEmptyUnit() {
    try {
        return std::make_shared<const UnitDescriptor>("", "");
    } catch (const std::bad_alloc&) {
        Raise(AllocationFailed("UnitDescriptor", ORX_CODE_CONTEXT));
    }
}

// Values without a unit all share one descriptor, so that making one costs no
// allocation.
const UnitDescriptorPtr& EmptyUnit() {
    static const UnitDescriptorPtr empty = MakeEmptyUnit();
    return empty;
}

}  // namespace

std::shared_ptr<UnitDictionary> UnitizedValueBase::GetGlobalDictionary() {
    std::lock_guard<std::mutex> lock(globalDictionaryMutex());
    if (!globalDictionary()) {
        return UnitDictionary::StandardUnits();
    }
    return globalDictionary();
}

void UnitizedValueBase::SetGlobalDictionary(std::shared_ptr<UnitDictionary> dictionary) {
    std::lock_guard<std::mutex> lock(globalDictionaryMutex());
    globalDictionary() = std::move(dictionary);
}

template <class T>
UnitizedValue<T>::XUnitNotFound::XUnitNotFound(const std::string& unitText, CodeContext context)
    : LogicError(boost::str(boost::format("%1% unit not found in the unit dictionary") % unitText), kCategory,
                 std::move(context)) {}

template <class T>
UnitizedValue<T>::XNoUnitConversion::XNoUnitConversion(const std::string& from, const std::string& to,
                                                        CodeContext context)
    : LogicError(boost::str(boost::format("Illegal unit conversion from \"%1%\" to \"%2%\"") % from % to),
                 kCategory, std::move(context)) {}

namespace {

template <class Value>
UnitDescriptorPtr LookupOrRaise(const std::string& unitText) {
    UnitDescriptorPtr unit = UnitizedValueBase::GetGlobalDictionary()->LookupUnit(unitText);
    if (!unit) {
        Raise(typename Value::XUnitNotFound(unitText, ORX_CODE_CONTEXT));
    }
    return unit;
}

}  // namespace

template <class T>
UnitizedValue<T>::UnitizedValue() : value_(), unit_(EmptyUnit()) {}

template <class T>
UnitizedValue<T>::UnitizedValue(T value) : value_(value), unit_(EmptyUnit()) {}

template <class T>
UnitizedValue<T>::UnitizedValue(T value, const std::string& unitText)
    : value_(value), unit_(unitText.empty() ? EmptyUnit() : LookupOrRaise<UnitizedValue>(unitText)) {}

template <class T>
UnitizedValue<T>::UnitizedValue(T value, UnitDescriptorPtr unit)
    : value_(value), unit_(unit ? std::move(unit) : EmptyUnit()) {}

template <class T>
void UnitizedValue<T>::ConvertTo(const std::string& unitText) {
    const UnitDescriptorPtr from = LookupOrRaise<UnitizedValue>(unit_->GetName());
    UnitDescriptorPtr to = LookupOrRaise<UnitizedValue>(unitText);
    value_ = convertUnits(value_, *from, *to);
    unit_ = std::move(to);
}

template <class T>
UnitizedValue<T> UnitizedValue<T>::ConvertedTo(const std::string& unitText) const {
    UnitizedValue copy(*this);
    copy.ConvertTo(unitText);
    return copy;
}

template <class T>
T UnitizedValue<T>::convertUnits(T x, const UnitDescriptor& from, const UnitDescriptor& to) {
    if (!from.IsDimensionallyEquivalent(to)) {
        Raise(XNoUnitConversion(from.GetName(), to.GetName(), ORX_CODE_CONTEXT));
    }
    if (!from.RequiresConversion(to)) {
        return x;
    }
    return static_cast<T>(to.ConvertFromBaseUnits(from.ConvertToBaseUnits(static_cast<double>(x))));
}

template class UnitizedValue<double>;

}  // namespace Orx::Core

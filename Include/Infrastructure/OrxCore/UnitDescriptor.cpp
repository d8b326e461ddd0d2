#include "Include/Infrastructure/OrxCore/UnitizedValue.h"

#include "Include/Infrastructure/OrxCore/UnitDimensions.h"

#include <utility>

namespace Orx::Core {

namespace {

// Texts of composed units: an empty side is a unit of one, so it vanishes from
// a product and leaves "/x" in a quotient.
std::string ComposeText(const std::string& left, char op, const std::string& right) {
    if (right.empty()) {
        return left;
    }
    if (left.empty()) {
        return op == '*' ? right : "/" + right;
    }
    return left + op + right;
}

}  // namespace

UnitDescriptor::UnitDescriptor(std::string name, std::string abbreviation)
    : name_(std::move(name)), abbreviation_(std::move(abbreviation)) {}

UnitDescriptor::UnitDescriptor(std::string name, std::string abbreviation, UnitDimension dimension, double factor)
    : UnitDescriptor(std::move(name), std::move(abbreviation), dimension, factor, 0.0) {}

UnitDescriptor::UnitDescriptor(std::string name, std::string abbreviation, UnitDimension dimension, double factor,
                               double offset)
    : name_(std::move(name)),
      abbreviation_(std::move(abbreviation)),
      dimension_(dimension),
      factor_(factor),
      offset_(offset) {}

std::shared_ptr<UnitDescriptor> UnitDescriptor::MakeCopy() const {
    return std::make_shared<UnitDescriptor>(*this);
}

double UnitDescriptor::ConvertToBaseUnits(double x) const {
    return x * factor_ + offset_;
}

double UnitDescriptor::ConvertFromBaseUnits(double x) const {
    return (x - offset_) / factor_;
}

bool UnitDescriptor::IsUnitless() const {
    return dimension_ == UnitDimension{} && factor_ == 1.0 && offset_ == 0.0;
}

bool UnitDescriptor::operator==(const UnitDescriptor& other) const {
    return dimension_ == other.dimension_ && factor_ == other.factor_ && offset_ == other.offset_;
}

UnitDescriptor UnitDescriptor::operator*(const UnitDescriptor& other) const {
    UnitDescriptor result(*this);
    result *= other;
    return result;
}

UnitDescriptor UnitDescriptor::operator/(const UnitDescriptor& other) const {
    UnitDescriptor result(*this);
    result /= other;
    return result;
}

UnitDescriptor& UnitDescriptor::operator*=(const UnitDescriptor& other) {
    name_ = ComposeText(name_, '*', other.name_);
    abbreviation_ = ComposeText(abbreviation_, '*', other.abbreviation_);
    dimension_ = DimensionProduct(dimension_, other.dimension_);
    factor_ *= other.factor_;
    offset_ = 0.0;
    return *this;
}

UnitDescriptor& UnitDescriptor::operator/=(const UnitDescriptor& other) {
    name_ = ComposeText(name_, '/', other.name_);
    abbreviation_ = ComposeText(abbreviation_, '/', other.abbreviation_);
    dimension_ = DimensionQuotient(dimension_, other.dimension_);
    factor_ /= other.factor_;
    offset_ = 0.0;
    return *this;
}

bool UnitDescriptor::IsDimensionallyEquivalent(const UnitDescriptor& other) const {
    return dimension_ == other.dimension_;
}

bool UnitDescriptor::RequiresConversion(const UnitDescriptor& other) const {
    return factor_ != other.factor_ || offset_ != other.offset_;
}

}  // namespace Orx::Core

#include "Platform/DataCore/ContainerValue.h"

#include "Infrastructure/OrxDataCore/TUnitizedSerializer.h"
#include "Platform/AlertInfo.h"
#include "Platform/DataCore/ContainerText.h"
#include "Platform/DataCore/HeaderLineCursor.h"

namespace Orx::DataCore {

namespace {

using Kind = ContainerValue::Kind;

bool isInteger32(Kind k) { return k == Kind::Int || k == Kind::Long; }

// A text read as a number with a unit: the number, then optionally the unit
// behind blanks.
std::optional<std::pair<double, std::string>> splitUnitizedText(const std::string& text) {
    std::string trimmed = ContainerText::TrimBlanks(text);
    auto blank = trimmed.find_first_of(" \t");
    auto number = ContainerText::ParseDouble(trimmed.substr(0, blank));
    if (!number) {
        return std::nullopt;
    }
    std::string unit = blank == std::string::npos ? std::string() : ContainerText::TrimBlanks(trimmed.substr(blank));
    return std::make_pair(*number, unit);
}

std::string shapeText(std::size_t rows, std::size_t columns) {
    return std::to_string(rows) + "x" + std::to_string(columns);
}

}  // namespace

ContainerValue::ContainerValue() : kind_(Kind::Text), data_(std::string()) {}

ContainerValue::ContainerValue(std::int32_t value, Kind kind)
    : kind_(kind == Kind::Long ? Kind::Long : Kind::Int), data_(value) {}

ContainerValue::ContainerValue(std::uint32_t value) : kind_(Kind::UInt), data_(value) {}

ContainerValue::ContainerValue(float value) : kind_(Kind::Float), data_(value) {}

ContainerValue::ContainerValue(double value) : kind_(Kind::Double), data_(value) {}

ContainerValue::ContainerValue(std::string value) : kind_(Kind::Text), data_(std::move(value)) {}

ContainerValue::ContainerValue(std::vector<std::string> value) : kind_(Kind::Strings), data_(std::move(value)) {}

ContainerValue::ContainerValue(const Orx::Core::UnitizedValue<double>& value)
    : kind_(Kind::Unitized), data_(Unitized(value.GetValue(), TUnitizedSerializer::UnitName(value))) {}

ContainerValue::ContainerValue(double number, std::string unitName)
    : kind_(Kind::Unitized), data_(Unitized(number, std::move(unitName))) {}

ContainerValue::ContainerValue(std::shared_ptr<IntMatrix> value)
    : kind_(Kind::IntMatrix), data_(value ? std::move(value) : std::make_shared<IntMatrix>()) {}

ContainerValue::ContainerValue(std::shared_ptr<FloatMatrix> value)
    : kind_(Kind::FloatMatrix), data_(value ? std::move(value) : std::make_shared<FloatMatrix>()) {}

ContainerValue::ContainerValue(std::shared_ptr<FloatMatrixVector> value)
    : kind_(Kind::FloatMatrices), data_(value ? std::move(value) : std::make_shared<FloatMatrixVector>()) {}

ContainerValue ContainerValue::Opaque(std::string typeName, std::string text) {
    ContainerValue v(std::move(text));
    v.kind_ = Kind::Opaque;
    v.opaqueType_ = std::move(typeName);
    return v;
}

ContainerValue ContainerValue::FromHeader(const std::string& typeName, HeaderLineCursor& cursor) {
    std::string text = cursor.PeekRest();
    ContainerValue value;
    auto number = [&cursor](auto parse, const char* what) {
        auto parsed = parse(cursor.Token(what));
        if (!parsed) {
            cursor.Refuse(std::string("not ") + what);
        }
        return *parsed;
    };
    if (typeName == "int" || typeName == "long") {
        value = ContainerValue(number(ContainerText::ParseInt32, "a 32-bit integer"),
                               typeName == "long" ? Kind::Long : Kind::Int);
    } else if (typeName == "unsigned int") {
        value = ContainerValue(number(ContainerText::ParseUInt32, "an unsigned 32-bit integer"));
    } else if (typeName == "float") {
        value = ContainerValue(number(ContainerText::ParseFloat, "a float"));
    } else if (typeName == "double") {
        value = ContainerValue(number(ContainerText::ParseDouble, "a double"));
    } else if (typeName == "AsciiString") {
        value = ContainerValue(cursor.Quoted("the text"));
    } else if (typeName == "vector<string>") {
        std::uint64_t count = number(ContainerText::ParseUInt64, "a count");
        std::vector<std::string> texts;
        // Each text is read before it is stored: the count allocates nothing.
        for (std::uint64_t i = 0; i < count; ++i) {
            texts.push_back(cursor.Quoted("a text of the list"));
        }
        value = ContainerValue(std::move(texts));
    } else if (typeName == "TUnitized") {
        double n = number(ContainerText::ParseDouble, "a number");
        value = ContainerValue(n, cursor.Quoted("the unit"));
    } else {
        return Opaque(typeName, cursor.Rest());
    }
    cursor.ExpectEnd();
    value.fileText_ = std::move(text);
    return value;
}

std::string ContainerValue::HeaderText() const {
    if (fileText_) {
        return *fileText_;
    }
    switch (kind_) {
        case Kind::Text:
            return ContainerText::Quote(std::get<std::string>(data_));
        case Kind::Strings: {
            const auto& texts = std::get<std::vector<std::string>>(data_);
            std::string out = std::to_string(texts.size());
            for (const auto& t : texts) {
                out += ' ';
                out += ContainerText::Quote(t);
            }
            return out;
        }
        case Kind::Unitized: {
            const auto& u = std::get<Unitized>(data_);
            return ContainerText::FormatDouble(u.first) + " " + ContainerText::Quote(u.second);
        }
        case Kind::Opaque:
            return std::get<std::string>(data_);
        case Kind::IntMatrix:
        case Kind::FloatMatrix:
        case Kind::FloatMatrices:
            throw Orx::Core::LogicError("A matrix has no value text of its own", "Orx.DataCore.Container",
                                        ORX_CODE_CONTEXT);
        default:
            return *TextForm();
    }
}

std::string ContainerValue::TypeName() const {
    switch (kind_) {
        case Kind::Int: return "int";
        case Kind::Long: return "long";
        case Kind::UInt: return "unsigned int";
        case Kind::Float: return "float";
        case Kind::Double: return "double";
        case Kind::Text: return "AsciiString";
        case Kind::Strings: return "vector<string>";
        case Kind::Unitized: return "TUnitized";
        case Kind::Opaque: return opaqueType_;
        default: return "Matrix";
    }
}

bool ContainerValue::IsMatrix() const {
    return kind_ == Kind::IntMatrix || kind_ == Kind::FloatMatrix || kind_ == Kind::FloatMatrices;
}

std::optional<std::string> ContainerValue::TextForm() const {
    switch (kind_) {
        case Kind::Int:
        case Kind::Long: return std::to_string(std::get<std::int32_t>(data_));
        case Kind::UInt: return std::to_string(std::get<std::uint32_t>(data_));
        case Kind::Float: return ContainerText::FormatFloat(std::get<float>(data_));
        case Kind::Double: return ContainerText::FormatDouble(std::get<double>(data_));
        case Kind::Text: return std::get<std::string>(data_);
        case Kind::Unitized: {
            const auto& u = std::get<Unitized>(data_);
            std::string number = ContainerText::FormatDouble(u.first);
            return u.second.empty() ? number : number + " " + u.second;
        }
        default: return std::nullopt;
    }
}

std::string ContainerValue::DisplayText() const {
    switch (kind_) {
        case Kind::Strings: {
            std::string out;
            for (const auto& t : std::get<std::vector<std::string>>(data_)) {
                out += out.empty() ? "" : ", ";
                out += t;
            }
            return out;
        }
        case Kind::IntMatrix: {
            const auto& m = *std::get<std::shared_ptr<IntMatrix>>(data_);
            return "Matrix long " + shapeText(m.size1(), m.size2());
        }
        case Kind::FloatMatrix: {
            const auto& m = *std::get<std::shared_ptr<FloatMatrix>>(data_);
            return "Matrix float " + shapeText(m.size1(), m.size2());
        }
        case Kind::FloatMatrices: {
            const auto& v = *std::get<std::shared_ptr<FloatMatrixVector>>(data_);
            return "Matrix vector<float> " + std::to_string(v.size()) + " of " +
                   (v.empty() ? shapeText(0, 0) : shapeText(v.front().size1(), v.front().size2()));
        }
        case Kind::Opaque: return std::get<std::string>(data_);
        default: return TextForm().value_or(std::string());
    }
}

std::optional<ContainerValue> ContainerValue::ConvertedTo(Kind target) const {
    if (kind_ == target || (isInteger32(kind_) && isInteger32(target))) {
        ContainerValue copy = *this;
        copy.kind_ = target;
        copy.fileText_.reset();
        return copy;
    }
    if (IsMatrix() || kind_ == Kind::Opaque || kind_ == Kind::Strings) {
        return std::nullopt;
    }
    switch (target) {
        case Kind::Text:
            return ContainerValue(*TextForm());
        case Kind::Unitized: {
            auto split = splitUnitizedText(*TextForm());
            if (!split) {
                return std::nullopt;
            }
            return ContainerValue(split->first, split->second);
        }
        case Kind::Int:
        case Kind::Long:
        case Kind::UInt:
        case Kind::Float:
        case Kind::Double: {
            // A unitized value reads as its number alone.
            std::string text = kind_ == Kind::Unitized ? ContainerText::FormatDouble(std::get<Unitized>(data_).first)
                                                       : ContainerText::TrimBlanks(*TextForm());
            if (target == Kind::Int || target == Kind::Long) {
                auto v = ContainerText::ParseInt32(text);
                return v ? std::optional<ContainerValue>(ContainerValue(*v, target)) : std::nullopt;
            }
            if (target == Kind::UInt) {
                auto v = ContainerText::ParseUInt32(text);
                return v ? std::optional<ContainerValue>(ContainerValue(*v)) : std::nullopt;
            }
            if (target == Kind::Float) {
                auto v = ContainerText::ParseFloat(text);
                return v ? std::optional<ContainerValue>(ContainerValue(*v)) : std::nullopt;
            }
            auto v = ContainerText::ParseDouble(text);
            return v ? std::optional<ContainerValue>(ContainerValue(*v)) : std::nullopt;
        }
        default:
            return std::nullopt;
    }
}

template <class T>
ContainerValue::Kind ContainerValue::KindOf() {
    if constexpr (std::is_same_v<T, std::int32_t>) {
        return Kind::Int;
    } else if constexpr (std::is_same_v<T, std::uint32_t>) {
        return Kind::UInt;
    } else if constexpr (std::is_same_v<T, float>) {
        return Kind::Float;
    } else if constexpr (std::is_same_v<T, double>) {
        return Kind::Double;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return Kind::Text;
    } else if constexpr (std::is_same_v<T, std::vector<std::string>>) {
        return Kind::Strings;
    } else {
        static_assert(std::is_same_v<T, Orx::Core::UnitizedValue<double>>);
        return Kind::Unitized;
    }
}

template <class T>
bool ContainerValue::Extract(T& out) const {
    if constexpr (std::is_same_v<T, Orx::Core::UnitizedValue<double>>) {
        const auto& u = std::get<Unitized>(data_);
        try {
            out = TUnitizedSerializer::MakeValue(u.first, u.second);
        } catch (const Orx::Core::LogicError&) {
            return false;  // a unit the dictionary does not know
        }
        return true;
    } else {
        out = std::get<T>(data_);
        return true;
    }
}

template <class T>
bool ContainerValue::GetAs(T& out) const {
    Kind wanted = KindOf<T>();
    if (kind_ == wanted || (isInteger32(kind_) && isInteger32(wanted))) {
        return Extract(out);
    }
    auto converted = ConvertedTo(wanted);
    return converted && converted->Extract(out);
}

bool ContainerValue::Get(std::int32_t& out) const { return GetAs(out); }
bool ContainerValue::Get(std::uint32_t& out) const { return GetAs(out); }
bool ContainerValue::Get(float& out) const { return GetAs(out); }
bool ContainerValue::Get(double& out) const { return GetAs(out); }
bool ContainerValue::Get(std::string& out) const { return GetAs(out); }
bool ContainerValue::Get(std::vector<std::string>& out) const { return GetAs(out); }
bool ContainerValue::Get(Orx::Core::UnitizedValue<double>& out) const { return GetAs(out); }

template ContainerValue::Kind ContainerValue::KindOf<std::int32_t>();
template ContainerValue::Kind ContainerValue::KindOf<std::uint32_t>();
template ContainerValue::Kind ContainerValue::KindOf<float>();
template ContainerValue::Kind ContainerValue::KindOf<double>();
template ContainerValue::Kind ContainerValue::KindOf<std::string>();
template ContainerValue::Kind ContainerValue::KindOf<std::vector<std::string>>();
template ContainerValue::Kind ContainerValue::KindOf<Orx::Core::UnitizedValue<double>>();

std::shared_ptr<IntMatrix> ContainerValue::GetIntMatrix() const {
    return kind_ == Kind::IntMatrix ? std::get<std::shared_ptr<IntMatrix>>(data_) : nullptr;
}

std::shared_ptr<FloatMatrix> ContainerValue::GetFloatMatrix() const {
    return kind_ == Kind::FloatMatrix ? std::get<std::shared_ptr<FloatMatrix>>(data_) : nullptr;
}

std::shared_ptr<FloatMatrixVector> ContainerValue::GetFloatMatrices() const {
    return kind_ == Kind::FloatMatrices ? std::get<std::shared_ptr<FloatMatrixVector>>(data_) : nullptr;
}

ContainerValue ContainerValue::DeepCopy() const {
    ContainerValue copy = *this;
    switch (kind_) {
        case Kind::IntMatrix: copy.data_ = std::make_shared<IntMatrix>(*GetIntMatrix()); break;
        case Kind::FloatMatrix: copy.data_ = std::make_shared<FloatMatrix>(*GetFloatMatrix()); break;
        case Kind::FloatMatrices: copy.data_ = std::make_shared<FloatMatrixVector>(*GetFloatMatrices()); break;
        default: break;
    }
    return copy;
}

}  // namespace Orx::DataCore

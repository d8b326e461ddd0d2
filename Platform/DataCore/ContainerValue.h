#pragma once

#include "Infrastructure/OrxCore/UnitizedValue.h"
#include "Infrastructure/OrxDataCore/Matrices.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Orx::DataCore {

class HeaderLineCursor;

// One value of a container with the type it is stored under. A value read
// under another scalar or text type goes through its text form; a value of a
// type this system does not know is carried as the text the file gave it.
class ContainerValue {
public:
    enum class Kind {
        Int, Long, UInt, Float, Double, Text, Strings, Unitized, IntMatrix, FloatMatrix, FloatMatrices, Opaque
    };

    ContainerValue();  // an empty text
    explicit ContainerValue(std::int32_t value, Kind kind = Kind::Int);  // Int or Long
    explicit ContainerValue(std::uint32_t value);
    explicit ContainerValue(float value);
    explicit ContainerValue(double value);
    explicit ContainerValue(std::string value);
    explicit ContainerValue(std::vector<std::string> value);
    explicit ContainerValue(const Orx::Core::UnitizedValue<double>& value);
    ContainerValue(double number, std::string unitName);
    explicit ContainerValue(std::shared_ptr<IntMatrix> value);
    explicit ContainerValue(std::shared_ptr<FloatMatrix> value);
    explicit ContainerValue(std::shared_ptr<FloatMatrixVector> value);
    static ContainerValue Opaque(std::string typeName, std::string text);

    // Reads the value of a header line from the cursor, which stands behind
    // the type. Matrices are the reader's business, not this one's.
    static ContainerValue FromHeader(const std::string& typeName, HeaderLineCursor& cursor);
    // The value text of a header line: the text the file held while the value
    // is unchanged. Not for matrices.
    std::string HeaderText() const;
    // "int", "long", "unsigned int", "float", "double", "AsciiString",
    // "vector<string>", "TUnitized", "Matrix", or the name of an opaque type.
    std::string TypeName() const;
    Kind GetKind() const { return kind_; }
    bool IsMatrix() const;

    // A value of the other kind with the same meaning, when there is one.
    std::optional<ContainerValue> ConvertedTo(Kind kind) const;

    bool Get(std::int32_t& out) const;
    bool Get(std::uint32_t& out) const;
    bool Get(float& out) const;
    bool Get(double& out) const;
    bool Get(std::string& out) const;
    bool Get(std::vector<std::string>& out) const;
    bool Get(Orx::Core::UnitizedValue<double>& out) const;

    // The text a scalar, a text or a unitized value reads as; none for lists,
    // matrices and opaque values.
    std::optional<std::string> TextForm() const;
    // What a person is shown: the text form, a list joined by ", ", a
    // matrix's shape, an opaque value's text.
    std::string DisplayText() const;

    std::shared_ptr<IntMatrix> GetIntMatrix() const;
    std::shared_ptr<FloatMatrix> GetFloatMatrix() const;
    std::shared_ptr<FloatMatrixVector> GetFloatMatrices() const;

    // A copy that shares no matrix with this one.
    ContainerValue DeepCopy() const;

    template <class T>
    static Kind KindOf();

private:
    template <class T>
    bool GetAs(T& out) const;
    template <class T>
    bool Extract(T& out) const;

    using Unitized = std::pair<double, std::string>;
    Kind kind_ = Kind::Text;
    std::string opaqueType_;
    std::variant<std::int32_t, std::uint32_t, float, double, std::string, std::vector<std::string>, Unitized,
                 std::shared_ptr<IntMatrix>, std::shared_ptr<FloatMatrix>, std::shared_ptr<FloatMatrixVector>>
        data_;
    std::optional<std::string> fileText_;
};

}  // namespace Orx::DataCore

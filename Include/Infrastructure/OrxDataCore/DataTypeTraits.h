#pragma once

#include "Infrastructure/OrxCore/UnitizedValue.h"
#include "Infrastructure/OrxDataCore/BasicBuiltInSerializer.h"
#include "Infrastructure/OrxDataCore/BuiltInMatrixSerializer.h"
#include "Infrastructure/OrxDataCore/BuiltInMatrixVectorSerializer.h"
#include "Infrastructure/OrxDataCore/LongValue.h"
#include "Infrastructure/OrxDataCore/Matrices.h"
#include "Infrastructure/OrxDataCore/StringContainerSerializer.h"
#include "Infrastructure/OrxDataCore/StringSerializer.h"
#include "Infrastructure/OrxDataCore/TUnitizedSerializer.h"

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

namespace Orx::DataCore {

// For each type a value can take: the name it is stored under and its
// serializer. A type without a specialisation has no serializer.
template <class T>
struct DataTypeTraits {
    static std::string Name() { return typeid(T).name(); }
    static std::unique_ptr<Serializer> MakeSerializer(DataObject&, T&) { return nullptr; }
};

template <class T>
struct ScalarDataTypeTraits {
    static std::unique_ptr<Serializer> MakeSerializer(DataObject& owner, T& value, const char* name) {
        return std::make_unique<BasicBuiltInSerializer<T>>(owner, value, name);
    }
};

#define ORX_SCALAR_DATA_TYPE(T, NAME)                                                       \
    template <>                                                                              \
    struct DataTypeTraits<T> {                                                               \
        static std::string Name() { return NAME; }                                           \
        static std::unique_ptr<Serializer> MakeSerializer(DataObject& owner, T& value) {     \
            return ScalarDataTypeTraits<T>::MakeSerializer(owner, value, NAME);              \
        }                                                                                    \
    };

ORX_SCALAR_DATA_TYPE(int, "int")
ORX_SCALAR_DATA_TYPE(LongValue, "long")
ORX_SCALAR_DATA_TYPE(unsigned int, "unsigned int")
ORX_SCALAR_DATA_TYPE(float, "float")
ORX_SCALAR_DATA_TYPE(double, "double")
#undef ORX_SCALAR_DATA_TYPE

template <class T, class S>
struct SerializedDataTypeTraits {
    static std::unique_ptr<Serializer> MakeSerializer(DataObject& owner, T& value) {
        return std::make_unique<S>(owner, value);
    }
};

template <>
struct DataTypeTraits<std::string> : SerializedDataTypeTraits<std::string, StringSerializer> {
    static std::string Name() { return "AsciiString"; }
};
template <>
struct DataTypeTraits<std::vector<std::string>>
    : SerializedDataTypeTraits<std::vector<std::string>, StringContainerSerializer> {
    static std::string Name() { return "vector<string>"; }
};
template <>
struct DataTypeTraits<Orx::Core::UnitizedValue<double>>
    : SerializedDataTypeTraits<Orx::Core::UnitizedValue<double>, TUnitizedSerializer> {
    static std::string Name() { return "TUnitized"; }
};
// Both matrices share the encoding "Matrix"; their stored names tell them apart.
template <>
struct DataTypeTraits<IntMatrix> : SerializedDataTypeTraits<IntMatrix, BuiltInMatrixSerializer<IntMatrix>> {
    static std::string Name() { return "Matrix<long>"; }
};
template <>
struct DataTypeTraits<FloatMatrix> : SerializedDataTypeTraits<FloatMatrix, BuiltInMatrixSerializer<FloatMatrix>> {
    static std::string Name() { return "Matrix<float>"; }
};
template <>
struct DataTypeTraits<FloatMatrixVector> : SerializedDataTypeTraits<FloatMatrixVector, BuiltInMatrixVectorSerializer> {
    static std::string Name() { return "vector<Matrix<float>>"; }
};

}  // namespace Orx::DataCore

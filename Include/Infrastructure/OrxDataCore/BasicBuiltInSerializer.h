#pragma once

#include "Infrastructure/OrxDataCore/BuiltInSerializerBase.h"
#include "Infrastructure/OrxDataCore/LongValue.h"
#include "Platform/AssertFailed.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

#include <boost/lexical_cast.hpp>

#include <type_traits>

namespace Orx::DataCore {

// Serializer of a scalar: int, long (LongValue), unsigned int, float, double.
template <class T>
class BasicBuiltInSerializer : public BuiltInSerializerBase {
public:
    using data_type = T;

    BasicBuiltInSerializer(DataObject& owner, T& value, std::string encoding)
        : BuiltInSerializerBase(owner), value_(value), encoding_(std::move(encoding)) {}

    void DataToXML(Orx::Core::XMLWriter& writer) const override {
        LabelElement(writer);
        writer.Text(boost::lexical_cast<std::string>(value_));
    }

    std::uint64_t ToBinary(Orx::Core::DataOutputStream& stream) const override {
        if constexpr (std::is_same_v<T, double>) {
            stream.WriteDouble(value_);
        } else if constexpr (std::is_same_v<T, float>) {
            stream.WriteFloat(value_);
        } else if constexpr (std::is_same_v<T, LongValue>) {
            stream.WriteInt32(value_.value);
        } else {
            stream.WriteUInt32(static_cast<std::uint32_t>(value_));
        }
        return sizeof(data_type);
    }

    std::uint64_t FromBinary(std::uint64_t p_ui64NumBytes, Orx::Core::DataInputStream& stream) override {
        if (sizeof(data_type) != p_ui64NumBytes) {
            Orx::Core::AssertFailed("sizeof(data_type) == p_ui64NumBytes", "BasicBuiltInSerializer");
        }
        // The read goes on after the report; the stream refuses to run past its end.
        if constexpr (std::is_same_v<T, double>) {
            value_ = stream.ReadDouble();
        } else if constexpr (std::is_same_v<T, float>) {
            value_ = stream.ReadFloat();
        } else if constexpr (std::is_same_v<T, LongValue>) {
            value_.value = stream.ReadInt32();
        } else {
            value_ = static_cast<T>(stream.ReadUInt32());
        }
        return sizeof(data_type);
    }

    std::string GetXMLEncoding() const override { return encoding_; }
    std::uint64_t GetDataSize_bytes() const override { return sizeof(data_type); }
    bool DataSizeIsConstant() const override { return true; }

protected:
    void ElementRead(const std::string&, const XMLAttributes&, const std::string& text, int depth) override {
        if (depth != 1) {
            return;
        }
        try {
            value_ = boost::lexical_cast<T>(Trimmed(text));
        } catch (const boost::bad_lexical_cast&) {
            RefuseXML("\"" + text + "\" is no value of this type");
        }
    }

private:
    static_assert(sizeof(T) == 4 || sizeof(T) == 8);
    T& value_;
    std::string encoding_;
};

}  // namespace Orx::DataCore

#pragma once

#include "Infrastructure/OrxDataCore/XMLContentHandler.h"

#include <cstdint>
#include <memory>
#include <string>

namespace Orx::Core {
class DataInputStream;
class DataOutputStream;
class XMLWriter;
}  // namespace Orx::Core

namespace Orx::DataCore {

class DataObject;

// Turns the value of one data object into its binary and XML forms and back.
class Serializer {
public:
    // The encoding of the form every serializer can read back: the binary form
    // as hexadecimal digits.
    static const std::string DEFAULT_XML_ENCODING;

    explicit Serializer(DataObject& owner);
    virtual ~Serializer();
    Serializer(const Serializer&) = delete;
    Serializer& operator=(const Serializer&) = delete;

    virtual DataObject& GetDataObject() const;
    // The handler that reads XML of that encoding into the value: the
    // serializer's own for its encoding, the default one for the default
    // encoding, null for any other.
    virtual XMLContentHandler* GetXMLContentHandler(const std::string& encoding);
    // Writes the value into the element that the caller has opened, and labels
    // that element with the encoding it chose. This form is the default one.
    virtual void DataToXML(Orx::Core::XMLWriter& writer) const;
    // Both return the count of bytes moved.
    virtual std::uint64_t ToBinary(Orx::Core::DataOutputStream& stream) const = 0;
    virtual std::uint64_t FromBinary(std::uint64_t numberOfBytes, Orx::Core::DataInputStream& stream) = 0;
    virtual std::string GetXMLEncoding() const = 0;
    virtual std::uint64_t GetDataSize_bytes() const = 0;
    virtual bool DataSizeIsConstant() const = 0;

    static bool IsDefaultEncoding(const std::string& encoding);

    // Reads the value back from the XML of one element as DataToXML labels it;
    // an element without "encoding" is taken to be in the serializer's own.
    // Raises LogicError for malformed XML or an encoding nobody reads.
    void DataFromXML(const std::string& xml);

    // Matrices up to this many elements are written as plain numbers.
    static std::uint64_t GetMaxScalarElementsForPlainText();
    static void SetMaxScalarElementsForPlainText(std::uint64_t count);
    // Whether float matrices may take the plain form as well.
    static bool PlainTextForFloatCollectionsIsEnabled();
    static void EnablePlainTextForFloatCollections(bool enable);

private:
    class HexContentHandler;
    class EncodingDispatcher;

    DataObject& owner_;
    std::unique_ptr<HexContentHandler> defaultHandler_;
};

}  // namespace Orx::DataCore

// Any bytes at all, bound as a stored value of each type the files hold. The
// first byte picks the type and whether the stored name agrees with it; the
// rest is the binary form. A refusal is a normal answer. A value that binds
// must write a binary form that binds again to the same form, and an XML
// form that reads back to the same text.

#include "Infrastructure/OrxDataCore/UnboundDataObject.h"
#include "Platform/AlertInfo.h"
#include "Platform/AssertFailed.h"
#include "Platform/DataStreams.h"
#include "Platform/XMLWriter.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Orx::DataCore;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

std::vector<std::uint8_t> BinaryOf(const Serializer& serializer) {
    std::vector<std::uint8_t> bytes;
    Orx::Core::DataOutputStream out(bytes);
    Require(serializer.ToBinary(out) == bytes.size());
    return bytes;
}

std::string XmlOf(const Serializer& serializer) {
    std::ostringstream xml;
    Orx::Core::XMLWriter writer(xml);
    writer.StartTag("Value");
    serializer.DataToXML(writer);
    writer.EndTag();
    return xml.str();
}

template <class T>
void Bind(const std::string& storedName, const std::vector<std::uint8_t>& content) {
    std::shared_ptr<DataObject> object;
    try {
        object = UnboundData(storedName, content).BindType<T>();
    } catch (const Orx::Core::Error&) {
        return;
    }
    Data<T> bound = Data<T>::FromObject(object);
    Require(static_cast<bool>(bound));
    Serializer* serializer = bound.GetWrapper()->GetSerializer();
    const std::vector<std::uint8_t> first = BinaryOf(*serializer);
    Require(first.size() == serializer->GetDataSize_bytes());

    Data<T> again = Data<T>::FromObject(UnboundData(DataTypeTraits<T>::Name(), first).BindType<T>());
    Require(BinaryOf(*again.GetWrapper()->GetSerializer()) == first);

    // A NaN's payload has no text, so the XML form is held to being a fixed
    // point: what it reads back writes the same text again.
    const std::string xml = XmlOf(*serializer);
    Data<T> fromXml;
    fromXml.GetWrapper()->GetSerializer()->DataFromXML(xml);
    Require(XmlOf(*fromXml.GetWrapper()->GetSerializer()) == xml);
}

template <class T>
void BindAs(bool mismatchedName, const std::vector<std::uint8_t>& content) {
    Bind<T>(mismatchedName ? std::string("Matrix") : DataTypeTraits<T>::Name(), content);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool quiet = [] {
        Orx::Core::Warning::SetHandler([](const Orx::Core::Warning&) {});
        Orx::Core::SetAssertHandler([](const std::string&, const std::string&) {});
        return true;
    }();
    (void)quiet;
    if (size == 0) {
        return 0;
    }
    const bool mismatched = (data[0] & 0x80) != 0;
    const std::vector<std::uint8_t> content(data + 1, data + size);
    switch (data[0] % 11) {
        case 0: BindAs<int>(mismatched, content); break;
        case 1: BindAs<LongValue>(mismatched, content); break;
        case 2: BindAs<unsigned int>(mismatched, content); break;
        case 3: BindAs<float>(mismatched, content); break;
        case 4: BindAs<double>(mismatched, content); break;
        case 5: BindAs<std::string>(mismatched, content); break;
        case 6: BindAs<std::vector<std::string>>(mismatched, content); break;
        case 7: BindAs<Orx::Core::UnitizedValue<double>>(mismatched, content); break;
        case 8: BindAs<IntMatrix>(mismatched, content); break;
        case 9: BindAs<FloatMatrix>(mismatched, content); break;
        default: BindAs<FloatMatrixVector>(mismatched, content); break;
    }
    return 0;
}

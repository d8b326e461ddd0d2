#pragma once

#include "Infrastructure/OrxDataCore/Matrices.h"
#include "Platform/DataCore/DataContainer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace SampleKit {

// Builds a container file of either family in a few lines:
//
//   ContainerBuilder::Quillon()
//       .Section("QuillonFileOverviewInfo").Text("FileSubType", "IMAGE")
//       .Section("Dulce image list").Samples16(40960, 2, 2, {1, -2, 3, -4})
//       .Write(path);
//
// Keys go into the section named last; the file goes through the layer's
// own writer, so what it writes is what the layer reads.
class ContainerBuilder {
public:
    explicit ContainerBuilder(std::string fileType);
    static ContainerBuilder Quillon();
    static ContainerBuilder Harlen();

    // Makes the top-level section, or goes back to it.
    ContainerBuilder& Section(const std::string& name);

    ContainerBuilder& Int(const std::string& key, std::int32_t value);
    ContainerBuilder& Long(const std::string& key, std::int32_t value);
    ContainerBuilder& UInt(const std::string& key, std::uint32_t value);
    ContainerBuilder& Float(const std::string& key, float value);
    ContainerBuilder& Double(const std::string& key, double value);
    ContainerBuilder& Text(const std::string& key, const std::string& value);
    ContainerBuilder& Texts(const std::string& key, const std::vector<std::string>& values);
    ContainerBuilder& Unitized(const std::string& key, double value, const std::string& unit);
    // A key of any type, with its value written as a header line carries it.
    ContainerBuilder& Typed(const std::string& key, const std::string& typeName, const std::string& valueText);

    // Channel samples of the current section at a file offset: its "Data
    // offset", "Data length" (the samples' bytes unless given larger),
    // "Bytes/pixel" and "RawData". Sixteen-bit samples are given as stored
    // and read back times 65536.
    ContainerBuilder& Samples16(std::uint64_t offset, std::size_t rows, std::size_t columns,
                                const std::vector<std::int16_t>& samples, std::uint64_t dataLength = 0);
    ContainerBuilder& Samples32(std::uint64_t offset, std::size_t rows, std::size_t columns,
                                const std::vector<std::int32_t>& samples, std::uint64_t dataLength = 0);
    // Row after row.
    ContainerBuilder& FloatMatrix(const std::string& key, std::size_t rows, std::size_t columns,
                                  const std::vector<float>& values);
    ContainerBuilder& FloatMatrices(const std::string& key, const Orx::DataCore::FloatMatrixVector& matrices);

    Orx::DataCore::DataContainerPtr Root() const { return root_; }
    const std::string& FileType() const { return fileType_; }
    std::vector<std::uint8_t> Bytes() const;
    void Write(const std::string& path) const;

private:
    Orx::DataCore::DataContainer& Current();
    ContainerBuilder& Put(const std::string& key, Orx::DataCore::ContainerValue value);
    ContainerBuilder& Channel(std::uint64_t offset, std::size_t rows, std::size_t columns, unsigned bytesPerSample,
                              std::shared_ptr<Orx::DataCore::IntMatrix> samples, std::uint64_t dataLength);

    std::string fileType_;
    Orx::DataCore::DataContainerPtr root_;
    Orx::DataCore::DataContainerPtr current_;
};

}  // namespace SampleKit

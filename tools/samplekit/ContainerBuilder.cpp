#include "tools/samplekit/ContainerBuilder.h"

#include "Platform/DataCore/ContainerWriter.h"
#include "Platform/DataCore/DataFile.h"
#include "Platform/DataCore/HarlenDataFile.h"
#include "Platform/DataCore/HeaderLineCursor.h"
#include "Platform/DataCore/QuillonDataFile.h"

#include <algorithm>
#include <stdexcept>

namespace SampleKit {

using Orx::DataCore::ContainerValue;
using Orx::DataCore::DataContainer;
using Orx::DataCore::IntMatrix;

ContainerBuilder::ContainerBuilder(std::string fileType)
    : fileType_(std::move(fileType)), root_(std::make_shared<DataContainer>(std::string())), current_(root_) {}

ContainerBuilder ContainerBuilder::Quillon() { return ContainerBuilder(Orx::DataCore::QuillonDataFile::FILE_TYPE); }

ContainerBuilder ContainerBuilder::Harlen() { return ContainerBuilder(Orx::DataCore::HarlenDataFile::FILE_TYPE); }

ContainerBuilder& ContainerBuilder::Section(const std::string& name) {
    current_ = root_->AddChild(name);
    return *this;
}

DataContainer& ContainerBuilder::Current() { return *current_; }

ContainerBuilder& ContainerBuilder::Put(const std::string& key, ContainerValue value) {
    Current().PutEntry(key, std::move(value));
    return *this;
}

ContainerBuilder& ContainerBuilder::Int(const std::string& key, std::int32_t value) {
    return Put(key, ContainerValue(value));
}

ContainerBuilder& ContainerBuilder::Long(const std::string& key, std::int32_t value) {
    return Put(key, ContainerValue(value, ContainerValue::Kind::Long));
}

ContainerBuilder& ContainerBuilder::UInt(const std::string& key, std::uint32_t value) {
    return Put(key, ContainerValue(value));
}

ContainerBuilder& ContainerBuilder::Float(const std::string& key, float value) {
    return Put(key, ContainerValue(value));
}

ContainerBuilder& ContainerBuilder::Double(const std::string& key, double value) {
    return Put(key, ContainerValue(value));
}

ContainerBuilder& ContainerBuilder::Text(const std::string& key, const std::string& value) {
    return Put(key, ContainerValue(value));
}

ContainerBuilder& ContainerBuilder::Texts(const std::string& key, const std::vector<std::string>& values) {
    return Put(key, ContainerValue(values));
}

ContainerBuilder& ContainerBuilder::Unitized(const std::string& key, double value, const std::string& unit) {
    return Put(key, ContainerValue(value, unit));
}

ContainerBuilder& ContainerBuilder::Typed(const std::string& key, const std::string& typeName,
                                          const std::string& valueText) {
    std::string line = " " + valueText;
    Orx::DataCore::HeaderLineCursor cursor(line, 0);
    return Put(key, ContainerValue::FromHeader(typeName, cursor));
}

ContainerBuilder& ContainerBuilder::Channel(std::uint64_t offset, std::size_t rows, std::size_t columns,
                                            unsigned bytesPerSample, std::shared_ptr<IntMatrix> samples,
                                            std::uint64_t dataLength) {
    std::uint64_t bytes = static_cast<std::uint64_t>(rows) * columns * bytesPerSample;
    Put("Data offset", ContainerValue(std::to_string(offset)));
    Put("Data length", ContainerValue(static_cast<std::int32_t>(std::max(bytes, dataLength))));
    Put("Bytes/pixel", ContainerValue(static_cast<std::int32_t>(bytesPerSample)));
    return Put("RawData", ContainerValue(std::move(samples)));
}

ContainerBuilder& ContainerBuilder::Samples16(std::uint64_t offset, std::size_t rows, std::size_t columns,
                                              const std::vector<std::int16_t>& samples, std::uint64_t dataLength) {
    if (samples.size() != rows * columns) {
        throw std::invalid_argument("Samples16: rows x columns samples are needed");
    }
    auto matrix = std::make_shared<IntMatrix>(rows, columns);
    std::transform(samples.begin(), samples.end(), matrix->data().begin(), [](std::int16_t s) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint16_t>(s)) << 16);
    });
    return Channel(offset, rows, columns, 2, matrix, dataLength);
}

ContainerBuilder& ContainerBuilder::Samples32(std::uint64_t offset, std::size_t rows, std::size_t columns,
                                              const std::vector<std::int32_t>& samples, std::uint64_t dataLength) {
    if (samples.size() != rows * columns) {
        throw std::invalid_argument("Samples32: rows x columns samples are needed");
    }
    auto matrix = std::make_shared<IntMatrix>(rows, columns);
    std::copy(samples.begin(), samples.end(), matrix->data().begin());
    return Channel(offset, rows, columns, 4, matrix, dataLength);
}

ContainerBuilder& ContainerBuilder::FloatMatrix(const std::string& key, std::size_t rows, std::size_t columns,
                                                const std::vector<float>& values) {
    if (values.size() != rows * columns) {
        throw std::invalid_argument("FloatMatrix: rows x columns values are needed");
    }
    auto matrix = std::make_shared<Orx::DataCore::FloatMatrix>(rows, columns);
    std::copy(values.begin(), values.end(), matrix->data().begin());
    return Put(key, ContainerValue(matrix));
}

ContainerBuilder& ContainerBuilder::FloatMatrices(const std::string& key,
                                                  const Orx::DataCore::FloatMatrixVector& matrices) {
    return Put(key, ContainerValue(std::make_shared<Orx::DataCore::FloatMatrixVector>(matrices)));
}

std::vector<std::uint8_t> ContainerBuilder::Bytes() const {
    return Orx::DataCore::ContainerWriter::WriteMemory(fileType_, *root_);
}

void ContainerBuilder::Write(const std::string& path) const {
    auto file = Orx::DataCore::DataFile::Make(path, fileType_, root_->Clone());
    file->SetContentModified(true);
    file->Close();
}

}  // namespace SampleKit

#include "Platform/DataCore/ContainerReader.h"

#include "Infrastructure/OrxDataCore/GenericWrapper.h"
#include "Platform/DataCore/ChannelBlock.h"
#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/ContainerText.h"
#include "Platform/DataCore/HeaderLineCursor.h"
#include "Platform/DataStreams.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace Orx::DataCore {

namespace {

[[noreturn]] void refuse(const std::string& why) {
    throw ContainerFormatError("Container file: " + why, ORX_CODE_CONTEXT);
}

// A matrix named in the header, waiting for its block.
struct PendingMatrix {
    DataContainerPtr section;
    std::string key;
    ContainerValue::Kind kind = ContainerValue::Kind::IntMatrix;
    std::uint64_t rows = 0;
    std::uint64_t columns = 0;
    std::uint64_t count = 1;  // matrices in a vector
    bool inSection = false;
    std::uint64_t offset = 0;
    std::uint64_t extent = 0;  // bytes the block occupies in the file
    std::uint64_t bytes = 0;   // bytes of it that are read
    ChannelBlock channel;
    std::size_t line = 0;
    std::shared_ptr<IntMatrix> intMatrix;
    std::shared_ptr<FloatMatrix> floatMatrix;
    std::shared_ptr<FloatMatrixVector> floatMatrices;
};

std::string locate(const PendingMatrix& m) {
    return "\"" + m.key + "\" of section \"" + m.section->GetName() + "\" (header line " + std::to_string(m.line) + ")";
}

std::uint64_t shapeNumber(HeaderLineCursor& cursor, const std::string& text) {
    auto value = ContainerText::ParseUInt64(text);
    if (!value || *value > std::numeric_limits<std::uint32_t>::max()) {
        cursor.Refuse("\"" + text + "\" is no matrix size");
    }
    return *value;
}

// "long 4x3 in-section", "float 4x3 at 8192", "vector<float> 300 of 8x1 at 8192".
PendingMatrix parseMatrix(HeaderLineCursor& cursor, std::size_t line) {
    PendingMatrix m;
    m.line = line;
    std::string element = cursor.Token("the element type");
    if (element == "long") {
        m.kind = ContainerValue::Kind::IntMatrix;
    } else if (element == "float") {
        m.kind = ContainerValue::Kind::FloatMatrix;
    } else if (element == "vector<float>") {
        m.kind = ContainerValue::Kind::FloatMatrices;
        m.count = shapeNumber(cursor, cursor.Token("the count of matrices"));
        if (cursor.Token("\"of\"") != "of") {
            cursor.Refuse("\"of\" must follow the count of matrices");
        }
    } else {
        cursor.Refuse("matrices are \"long\", \"float\" or \"vector<float>\", not \"" + element + "\"");
    }
    std::string shape = cursor.Token("the shape");
    auto x = shape.find('x');
    if (x == std::string::npos) {
        cursor.Refuse("a shape is written rows x columns, as in 4x3");
    }
    m.rows = shapeNumber(cursor, shape.substr(0, x));
    m.columns = shapeNumber(cursor, shape.substr(x + 1));
    std::string placement = cursor.Token("the placement");
    if (placement == "in-section") {
        if (m.kind != ContainerValue::Kind::IntMatrix) {
            cursor.Refuse("only a \"long\" matrix lies where its section's keys say");
        }
        m.inSection = true;
    } else if (placement == "at") {
        std::string offset = cursor.Token("the offset");
        auto value = ContainerText::ParseUInt64(offset);
        if (!value) {
            cursor.Refuse("\"" + offset + "\" is no offset");
        }
        m.offset = *value;
    } else {
        cursor.Refuse("a matrix is placed \"in-section\" or \"at\" an offset, not \"" + placement + "\"");
    }
    cursor.ExpectEnd();
    return m;
}

// Bytes of the binary form of a matrix block placed by its own offset,
// or none when they could not fit into a file of that length.
std::optional<std::uint64_t> ownBlockBytes(const PendingMatrix& m, std::uint64_t length) {
    std::uint64_t elements = m.rows * m.columns;  // both below 2^32
    if (elements > length / 4) {
        return std::nullopt;
    }
    std::uint64_t one = 8 + 4 * elements;
    if (m.kind != ContainerValue::Kind::FloatMatrices) {
        return one;
    }
    if (length < 4 || m.count > (length - 4) / one) {
        return std::nullopt;
    }
    return 4 + m.count * one;
}

std::string readHeaderText(std::uint64_t length, const ContainerReader::ReadAt& readAt) {
    constexpr std::size_t kChunk = 64 * 1024;
    std::uint64_t limit = std::min(length, ContainerReader::kMaxHeaderBytes);
    std::string text;
    std::size_t lineStart = 0;
    while (text.size() < limit) {
        std::size_t old = text.size();
        std::size_t n = static_cast<std::size_t>(std::min<std::uint64_t>(kChunk, limit - old));
        text.resize(old + n);
        readAt(old, text.data() + old, n);
        for (std::size_t i = old; i < text.size(); ++i) {
            if (text[i] == '\0') {
                refuse("a NUL byte at " + std::to_string(i) + " before the end of the header");
            }
            if (text[i] != '\n') {
                continue;
            }
            std::string line = text.substr(lineStart, i - lineStart);
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            lineStart = i + 1;
            if (ContainerText::TrimBlanks(line) == ContainerReader::kEndOfHeader) {
                text.resize(i + 1);
                return text;
            }
        }
    }
    refuse("no \"end-of-header\" line within the first " + std::to_string(limit) + " bytes");
}

class HeaderParser {
public:
    explicit HeaderParser(const std::string& text) : text_(text) {}

    ContainerReader::Contents Parse(std::vector<PendingMatrix>& matrices) {
        ContainerReader::Contents contents;
        contents.root = std::make_shared<DataContainer>(std::string());
        std::vector<DataContainerPtr> open{contents.root};
        bool typeSeen = false;
        std::size_t pos = 0;
        std::size_t lineNumber = 0;
        while (pos < text_.size()) {
            auto nl = std::min(text_.find('\n', pos), text_.size());
            std::string line = text_.substr(pos, nl - pos);
            pos = nl + 1;
            ++lineNumber;
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            HeaderLineCursor cursor(line, lineNumber);
            if (lineNumber == 1) {
                if (cursor.Token("the container mark") != ContainerReader::kMagic) {
                    cursor.Refuse("the file does not begin with \"OrxDataContainer\"");
                }
                if (cursor.Token("the syntax version") != "1") {
                    cursor.Refuse("only syntax version 1 is known");
                }
                cursor.ExpectEnd();
                continue;
            }
            std::string trimmed = ContainerText::TrimBlanks(line);
            if (trimmed.empty() || trimmed[0] == '#') {
                continue;
            }
            std::string keyword = cursor.Token("a keyword");
            if (!typeSeen) {
                if (keyword != "type") {
                    cursor.Refuse("the \"type\" line must come first");
                }
                contents.fileType = cursor.Quoted("the file type");
                cursor.ExpectEnd();
                typeSeen = true;
            } else if (keyword == "section") {
                std::string name = cursor.Quoted("the section name");
                cursor.ExpectEnd();
                if (open.size() > ContainerReader::kMaxSectionDepth) {
                    cursor.Refuse("sections nest deeper than " + std::to_string(ContainerReader::kMaxSectionDepth));
                }
                if (open.back()->GetChild(name)) {
                    cursor.Refuse("a second section \"" + name + "\" in the same place");
                }
                open.push_back(open.back()->AddChild(name));
            } else if (keyword == "end") {
                cursor.ExpectEnd();
                if (open.size() == 1) {
                    cursor.Refuse("\"end\" without a section to close");
                }
                open.pop_back();
            } else if (keyword == "key") {
                ParseKey(cursor, lineNumber, open.back(), matrices);
            } else if (keyword == ContainerReader::kEndOfHeader) {
                cursor.ExpectEnd();
                if (open.size() != 1) {
                    cursor.Refuse("section \"" + open.back()->GetName() + "\" is not closed");
                }
                contents.headerSize = pos;
                return contents;
            } else {
                cursor.Refuse("unknown keyword \"" + keyword + "\"");
            }
        }
        refuse("the header ends without \"end-of-header\"");
    }

private:
    static void ParseKey(HeaderLineCursor& cursor, std::size_t lineNumber, const DataContainerPtr& section,
                         std::vector<PendingMatrix>& matrices) {
        std::string key = cursor.Quoted("the key");
        std::string type = cursor.Token("the type");
        if (section->HasKey(key)) {
            cursor.Refuse("a second key \"" + key + "\" in section \"" + section->GetName() + "\"");
        }
        if (type != "Matrix") {
            section->PutEntry(key, ContainerValue::FromHeader(type, cursor));
            return;
        }
        PendingMatrix m = parseMatrix(cursor, lineNumber);
        m.section = section;
        m.key = key;
        // The matrix object stands in the section from now on; its block fills it later.
        switch (m.kind) {
            case ContainerValue::Kind::IntMatrix:
                m.intMatrix = std::make_shared<IntMatrix>();
                section->PutEntry(key, ContainerValue(m.intMatrix));
                break;
            case ContainerValue::Kind::FloatMatrix:
                m.floatMatrix = std::make_shared<FloatMatrix>();
                section->PutEntry(key, ContainerValue(m.floatMatrix));
                break;
            default:
                m.floatMatrices = std::make_shared<FloatMatrixVector>();
                section->PutEntry(key, ContainerValue(m.floatMatrices));
                break;
        }
        matrices.push_back(std::move(m));
    }

    const std::string& text_;
};

// Places every block and checks it against the header and the file.
void placeBlocks(std::vector<PendingMatrix>& matrices, std::uint64_t headerSize, std::uint64_t length) {
    for (auto& m : matrices) {
        bool channel = ChannelBlock::Applies(*m.section, m.key, m.kind);
        if (channel != m.inSection) {
            refuse(locate(m) + (channel ? " must be placed \"in-section\": the section has a \"Data offset\""
                                        : " cannot be placed \"in-section\""));
        }
        if (m.inSection) {
            m.channel = ChannelBlock::Of(*m.section);
            m.offset = m.channel.offset;
            m.extent = m.channel.length;
            m.bytes = m.channel.SampleBytes(m.rows, m.columns, m.section->GetName());
        } else {
            auto bytes = ownBlockBytes(m, length);
            if (!bytes) {
                refuse(locate(m) + " is larger than the file");
            }
            m.extent = m.bytes = *bytes;
        }
        if (m.offset < headerSize) {
            refuse(locate(m) + " begins at " + std::to_string(m.offset) + ", inside the header of " +
                   std::to_string(headerSize) + " bytes");
        }
        if (m.offset > length || m.extent > length - m.offset) {
            refuse(locate(m) + " runs to " + std::to_string(m.offset) + " + " + std::to_string(m.extent) +
                   ", beyond the end of the file at " + std::to_string(length));
        }
    }
    // Blocks may not share bytes: every byte read is then a byte of the file
    // read once, and no file can ask for more memory than its own size.
    std::vector<const PendingMatrix*> order;
    for (const auto& m : matrices) {
        order.push_back(&m);
    }
    std::sort(order.begin(), order.end(), [](const auto* a, const auto* b) {
        return a->offset != b->offset ? a->offset < b->offset : a->extent < b->extent;
    });
    for (std::size_t i = 1; i < order.size(); ++i) {
        if (order[i - 1]->offset + order[i - 1]->extent > order[i]->offset) {
            refuse(locate(*order[i - 1]) + " and " + locate(*order[i]) + " overlap");
        }
    }
}

void loadChannel(PendingMatrix& m, const ContainerReader::ReadAt& readAt) {
    constexpr std::size_t kChunkSamples = 32 * 1024;
    m.intMatrix->resize(static_cast<std::size_t>(m.rows), static_cast<std::size_t>(m.columns), false);
    std::int32_t* out = m.intMatrix->data().data();
    std::uint64_t count = m.rows * m.columns;
    unsigned width = m.channel.bytesPerSample;
    std::vector<std::uint8_t> chunk(std::min<std::uint64_t>(count, kChunkSamples) * width);
    for (std::uint64_t done = 0; done < count;) {
        std::size_t n = static_cast<std::size_t>(std::min<std::uint64_t>(kChunkSamples, count - done));
        readAt(m.offset + done * width, chunk.data(), n * width);
        ChannelBlock::Decode(chunk.data(), n, width, out + done);
        done += n;
    }
}

template <class T>
void loadOwn(PendingMatrix& m, const std::shared_ptr<T>& target, const ContainerReader::ReadAt& readAt) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(m.bytes));
    readAt(m.offset, bytes.data(), bytes.size());
    Orx::Core::DataInputStream stream(bytes.data(), bytes.size());
    GenericWrapper<T> wrapper(target);
    try {
        wrapper.GetSerializer()->FromBinary(bytes.size(), stream);
    } catch (const Orx::Core::LogicError& e) {
        refuse(locate(m) + ": " + e.GetMessage());
    }
}

template <class M>
bool hasShape(const M& matrix, const PendingMatrix& m) {
    return matrix.size1() == m.rows && matrix.size2() == m.columns;
}

void loadBlocks(std::vector<PendingMatrix>& matrices, const ContainerReader::ReadAt& readAt) {
    for (auto& m : matrices) {
        bool shapeHolds = true;
        if (m.inSection) {
            loadChannel(m, readAt);
        } else if (m.kind == ContainerValue::Kind::IntMatrix) {
            loadOwn(m, m.intMatrix, readAt);
            shapeHolds = hasShape(*m.intMatrix, m);
        } else if (m.kind == ContainerValue::Kind::FloatMatrix) {
            loadOwn(m, m.floatMatrix, readAt);
            shapeHolds = hasShape(*m.floatMatrix, m);
        } else {
            loadOwn(m, m.floatMatrices, readAt);
            shapeHolds = m.floatMatrices->size() == m.count &&
                         std::all_of(m.floatMatrices->begin(), m.floatMatrices->end(),
                                     [&m](const FloatMatrix& f) { return hasShape(f, m); });
        }
        if (!shapeHolds) {
            refuse(locate(m) + ": the block at " + std::to_string(m.offset) +
                   " holds another shape than the header says");
        }
    }
}

}  // namespace

ContainerReader::Contents ContainerReader::Read(std::uint64_t length, const ReadAt& readAt) {
    std::string header = readHeaderText(length, readAt);
    std::vector<PendingMatrix> matrices;
    Contents contents = HeaderParser(header).Parse(matrices);
    placeBlocks(matrices, contents.headerSize, length);
    loadBlocks(matrices, readAt);
    return contents;
}

ContainerReader::Contents ContainerReader::ReadMemory(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    if (bytes == nullptr) {
        size = 0;
    }
    return Read(size, [bytes, size](std::uint64_t offset, void* buffer, std::size_t n) {
        if (offset > size || n > size - offset) {
            refuse("a read beyond the end of the image");
        }
        if (n > 0) {
            std::memcpy(buffer, bytes + offset, n);
        }
    });
}

}  // namespace Orx::DataCore

#include "Platform/DataCore/ContainerWriter.h"

#include "Infrastructure/OrxDataCore/GenericWrapper.h"
#include "Platform/DataCore/ChannelBlock.h"
#include "Platform/DataCore/ContainerFormatError.h"
#include "Platform/DataCore/ContainerReader.h"
#include "Platform/DataCore/ContainerText.h"
#include "Platform/DataStreams.h"

#include <algorithm>
#include <limits>
#include <map>

namespace Orx::DataCore {

namespace {

[[noreturn]] void refuse(const std::string& why) {
    throw ContainerFormatError("Cannot write the container: " + why, ORX_CODE_CONTEXT);
}

std::uint64_t alignUp(std::uint64_t value, std::uint64_t alignment) {
    return (value + alignment - 1) / alignment * alignment;
}

std::string shapeText(std::size_t rows, std::size_t columns) {
    return std::to_string(rows) + "x" + std::to_string(columns);
}

// One matrix and where its block goes.
struct Block {
    const DataContainer* section = nullptr;
    std::string key;
    ContainerValue value;
    bool inSection = false;
    ChannelBlock channel;
    std::uint64_t offset = 0;
    std::uint64_t bytes = 0;   // written
    std::uint64_t extent = 0;  // occupied
};

// A section as it is written: its keys, in order, and the sections below it.
struct Node {
    const DataContainer* section;
    DataContainerPtr keep;  // holds a section below the root for the length of the write
    std::vector<std::pair<std::string, ContainerValue>> entries;
    std::vector<Node> children;
    std::vector<std::size_t> blockOf;  // for each entry, its block, or kNoBlock
};

constexpr std::size_t kNoBlock = static_cast<std::size_t>(-1);

Node snapshot(const DataContainer& section, DataContainerPtr keep, std::vector<Block>& blocks) {
    Node node{&section, std::move(keep), section.GetEntries(), {}, {}};
    for (const auto& [key, value] : node.entries) {
        if (!value.IsMatrix()) {
            node.blockOf.push_back(kNoBlock);
            continue;
        }
        Block b;
        b.section = &section;
        b.key = key;
        b.value = value;
        b.inSection = ChannelBlock::Applies(section, key, value.GetKind());
        node.blockOf.push_back(blocks.size());
        blocks.push_back(std::move(b));
    }
    for (const auto& child : section.GetChildren()) {
        node.children.push_back(snapshot(*child, child, blocks));
    }
    return node;
}

std::string matrixText(const Block& b) {
    std::string text;
    switch (b.value.GetKind()) {
        case ContainerValue::Kind::IntMatrix: {
            const auto& m = *b.value.GetIntMatrix();
            text = "long " + shapeText(m.size1(), m.size2());
            break;
        }
        case ContainerValue::Kind::FloatMatrix: {
            const auto& m = *b.value.GetFloatMatrix();
            text = "float " + shapeText(m.size1(), m.size2());
            break;
        }
        default: {
            const auto& v = *b.value.GetFloatMatrices();
            std::size_t rows = v.empty() ? 0 : v.front().size1();
            std::size_t columns = v.empty() ? 0 : v.front().size2();
            text = "vector<float> " + std::to_string(v.size()) + " of " + shapeText(rows, columns);
        }
    }
    return text + (b.inSection ? " in-section" : " at " + std::to_string(b.offset));
}

void render(const Node& node, std::size_t depth, const std::vector<Block>& blocks, std::string& out) {
    std::string indent(depth * 2, ' ');
    for (std::size_t i = 0; i < node.entries.size(); ++i) {
        const auto& [key, value] = node.entries[i];
        std::string text = node.blockOf[i] == kNoBlock ? value.HeaderText() : matrixText(blocks[node.blockOf[i]]);
        out += indent + "key " + ContainerText::Quote(key) + " " + ContainerText::TypeToken(value.TypeName());
        if (!text.empty()) {
            out += " " + text;
        }
        // A reader drops one carriage return before the line feed, so a kept
        // value text that ends in one is given a second to lose.
        out += out.back() == '\r' ? "\r\n" : "\n";
    }
    for (const auto& child : node.children) {
        out += indent + "section " + ContainerText::Quote(child.section->GetName()) + "\n";
        render(child, depth + 1, blocks, out);
        out += indent + "end\n";
    }
}

std::string renderHeader(const std::string& fileType, const Node& root, const std::vector<Block>& blocks) {
    std::string out = std::string(ContainerReader::kMagic) + " 1\n";
    out += "type " + ContainerText::Quote(fileType) + "\n";
    render(root, 0, blocks, out);
    out += std::string(ContainerReader::kEndOfHeader) + "\n";
    return out;
}

template <class T>
Serializer& serializerOf(GenericWrapper<T>& wrapper) {
    return *wrapper.GetSerializer();
}

// Sizes of the blocks that carry their own offset, checked for what the
// syntax can say.
void sizeOwnBlock(Block& b) {
    auto limit = std::numeric_limits<std::uint32_t>::max();
    auto check = [&b, limit](std::size_t rows, std::size_t columns) {
        if (rows > limit || columns > limit) {
            refuse("\"" + b.key + "\" of section \"" + b.section->GetName() + "\" has a size beyond 4 bytes");
        }
    };
    switch (b.value.GetKind()) {
        case ContainerValue::Kind::IntMatrix: {
            const auto& m = *b.value.GetIntMatrix();
            check(m.size1(), m.size2());
            b.bytes = MatrixForms::BinarySize(m);
            break;
        }
        case ContainerValue::Kind::FloatMatrix: {
            const auto& m = *b.value.GetFloatMatrix();
            check(m.size1(), m.size2());
            b.bytes = MatrixForms::BinarySize(m);
            break;
        }
        default: {
            const auto& v = *b.value.GetFloatMatrices();
            if (v.size() > limit) {
                refuse("\"" + b.key + "\" of section \"" + b.section->GetName() + "\" holds too many matrices");
            }
            b.bytes = 4;
            for (const auto& m : v) {
                if (m.size1() != v.front().size1() || m.size2() != v.front().size2()) {
                    refuse("the matrices of \"" + b.key + "\" of section \"" + b.section->GetName() +
                           "\" differ in shape");
                }
                check(m.size1(), m.size2());
                b.bytes += MatrixForms::BinarySize(m);
            }
        }
    }
    b.extent = b.bytes;
}

// By offset, and an empty block before a full one at the same offset.
bool inFileOrder(const Block* a, const Block* b) {
    return a->offset != b->offset ? a->offset < b->offset : a->extent < b->extent;
}

void placeChannelBlocks(std::vector<Block>& blocks) {
    std::vector<Block*> channels;
    for (auto& b : blocks) {
        if (!b.inSection) {
            continue;
        }
        const auto& m = *b.value.GetIntMatrix();
        if (m.size1() > std::numeric_limits<std::uint32_t>::max() ||
            m.size2() > std::numeric_limits<std::uint32_t>::max()) {
            refuse("\"RawData\" of section \"" + b.section->GetName() + "\" has a size beyond 4 bytes");
        }
        b.channel = ChannelBlock::Of(*b.section);
        b.offset = b.channel.offset;
        b.extent = b.channel.length;
        b.bytes = b.channel.SampleBytes(m.size1(), m.size2(), b.section->GetName());
        channels.push_back(&b);
    }
    std::sort(channels.begin(), channels.end(), inFileOrder);
    for (std::size_t i = 1; i < channels.size(); ++i) {
        if (channels[i - 1]->offset + channels[i - 1]->extent > channels[i]->offset) {
            refuse("the samples of sections \"" + channels[i - 1]->section->GetName() + "\" and \"" +
                   channels[i]->section->GetName() + "\" overlap");
        }
    }
}

void placeOwnBlocks(std::vector<Block>& blocks, std::uint64_t start) {
    std::uint64_t next = alignUp(start, 8);
    for (auto& b : blocks) {
        if (!b.inSection) {
            b.offset = next;
            next = alignUp(next + b.extent, 8);
        }
    }
}

void writeChannel(const Block& b, ContainerWriter::Sink& sink) {
    constexpr std::size_t kChunkSamples = 32 * 1024;
    const auto& m = *b.value.GetIntMatrix();
    const std::int32_t* samples = m.data().data();
    std::size_t count = m.data().size();
    unsigned width = b.channel.bytesPerSample;
    std::vector<std::uint8_t> chunk(std::min(count, kChunkSamples) * width);
    for (std::size_t done = 0; done < count;) {
        std::size_t n = std::min(kChunkSamples, count - done);
        ChannelBlock::Encode(samples + done, n, width, chunk.data());
        sink.Write(chunk.data(), n * width);
        done += n;
    }
}

void writeOwn(const Block& b, ContainerWriter::Sink& sink) {
    Orx::Core::DataOutputStream stream([&sink](const void* data, std::size_t size) { sink.Write(data, size); });
    switch (b.value.GetKind()) {
        case ContainerValue::Kind::IntMatrix: {
            GenericWrapper<IntMatrix> wrapper(b.value.GetIntMatrix());
            serializerOf(wrapper).ToBinary(stream);
            break;
        }
        case ContainerValue::Kind::FloatMatrix: {
            GenericWrapper<FloatMatrix> wrapper(b.value.GetFloatMatrix());
            serializerOf(wrapper).ToBinary(stream);
            break;
        }
        default: {
            GenericWrapper<FloatMatrixVector> wrapper(b.value.GetFloatMatrices());
            serializerOf(wrapper).ToBinary(stream);
        }
    }
}

class MemorySink : public ContainerWriter::Sink {
public:
    explicit MemorySink(std::vector<std::uint8_t>& out) : out_(out) {}
    void Write(const void* data, std::size_t size) override {
        const auto* p = static_cast<const std::uint8_t*>(data);
        out_.insert(out_.end(), p, p + size);
    }
    void Skip(std::uint64_t count) override { out_.resize(out_.size() + static_cast<std::size_t>(count), 0); }

private:
    std::vector<std::uint8_t>& out_;
};

}  // namespace

void ContainerWriter::Write(const std::string& fileType, const DataContainer& root, Sink& sink) {
    std::vector<Block> blocks;
    Node tree = snapshot(root, nullptr, blocks);
    for (auto& b : blocks) {
        if (!b.inSection) {
            sizeOwnBlock(b);
        }
    }
    placeChannelBlocks(blocks);

    bool hasChannels = false;
    std::uint64_t firstChannel = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t channelsEnd = 0;
    for (const auto& b : blocks) {
        if (b.inSection) {
            hasChannels = true;
            firstChannel = std::min(firstChannel, b.offset);
            channelsEnd = std::max(channelsEnd, b.offset + b.extent);
        }
    }
    std::string header;
    if (hasChannels) {
        placeOwnBlocks(blocks, channelsEnd);
        header = renderHeader(fileType, tree, blocks);
        if (header.size() > firstChannel) {
            refuse("the header of " + std::to_string(header.size()) + " bytes does not fit before the first sample "
                   "block at " + std::to_string(firstChannel));
        }
    } else {
        // The offsets are part of the header: grow the room for it until the
        // header fits before the blocks it names.
        std::uint64_t dataStart = 0;
        do {
            placeOwnBlocks(blocks, dataStart);
            header = renderHeader(fileType, tree, blocks);
            if (header.size() <= dataStart) {
                break;
            }
            dataStart = alignUp(header.size() + 64, 64);
        } while (true);
    }

    std::vector<const Block*> order;
    for (const auto& b : blocks) {
        order.push_back(&b);
    }
    std::sort(order.begin(), order.end(), inFileOrder);
    sink.Write(header.data(), header.size());
    std::uint64_t position = header.size();
    for (const Block* b : order) {
        sink.Skip(b->offset - position);
        if (b->inSection) {
            writeChannel(*b, sink);
        } else {
            writeOwn(*b, sink);
        }
        // Room that a channel's "Data length" keeps beyond its samples is part of the file.
        sink.Skip(b->extent - b->bytes);
        position = b->offset + b->extent;
    }
}

std::vector<std::uint8_t> ContainerWriter::WriteMemory(const std::string& fileType, const DataContainer& root) {
    std::vector<std::uint8_t> bytes;
    MemorySink sink(bytes);
    Write(fileType, root, sink);
    return bytes;
}

}  // namespace Orx::DataCore

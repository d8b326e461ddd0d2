#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace SampleKit {

// Builds ".tef" files byte by byte from a description, for tests and fuzz
// seeds. It knows the layout on its own and shares no code with the reader
// or the writers, so that each can be held against it. Every field of the
// description is public: a test sets what it needs, wrong values included,
// and takes the bytes.
class TefBuilder {
public:
    struct Record {
        std::uint16_t id = 0;
        std::vector<std::uint8_t> value;
        // The size written, where it is to differ from the value's length.
        std::optional<std::uint16_t> size;
    };

    struct Channel {
        std::uint16_t tag = 3;
        std::uint16_t type = 1;
        std::uint16_t subtype = 1;
        std::uint16_t direction = 1;
        std::uint16_t processingSteps = 1;
        // Written as 8 + the opaque rest unless set.
        std::optional<std::int32_t> headerLength;
        std::vector<std::uint8_t> headerRest;
        std::uint16_t imageTag = 42;
        // Written as 26 + the pixel bytes unless set.
        std::optional<std::uint32_t> imageLength;
        std::array<std::uint8_t, 16> imageHead{};
        std::uint16_t width = 0;
        std::uint16_t height = 0;
        std::uint16_t bytesPerPixel = 2;
        std::array<std::uint8_t, 4> reserved{};
        // Raw values in file order, bottom row first, each written in
        // bytesPerPixel bytes (at most 4); as many as given.
        std::vector<std::uint32_t> pixels;
    };

    // Values of the standard records.
    static constexpr double kScanSizeX = 5000.0;
    static constexpr double kScanSizeY = 2500.0;
    static constexpr std::uint16_t kFeedbackMode = 2;
    static constexpr double kScanRate = 1.5;
    static constexpr const char* kTipSerialNumber = "TS-0042";
    static constexpr std::uint16_t kBitsInUse = 16;
    static constexpr const char* kDateTime = "2021-03-04 10:11:12";
    static constexpr double kRotation = 30.25;
    static constexpr double kValue19 = 0.125;
    static constexpr double kDrive = 0.75;
    static constexpr double kSetpoint = 0.2;
    static constexpr const char* kUnit = "nm";
    static constexpr double kXOffset = 10.5;
    static constexpr double kYOffset = -20.25;
    static constexpr std::uint32_t kKept145 = 0xA1B2C3D4u;
    // Z range of channel i: kZRange + i; range origin: kRangeOrigin - i;
    // auxiliary: kAuxiliary x (i + 1); stored name: "Stored i".
    static constexpr double kZRange = 250.0;
    static constexpr double kRangeOrigin = -125.0;
    static constexpr double kAuxiliary = 0.5;

    // A well-formed file: a note, version 1.0, the standard records for the
    // channel count (the per-channel groups for the first eight), an empty
    // preview and one section per channel with ramp pixels.
    explicit TefBuilder(std::uint16_t channelCount = 1, std::uint16_t width = 4, std::uint16_t height = 3,
                        std::uint16_t bytesPerPixel = 2);

    std::string note = "Sample note";
    bool noteEnd = true;
    std::uint16_t documentTag = 1;
    std::uint16_t majorVersion = 1;
    std::uint16_t minorVersion = 0;
    // Written as the number of records unless set.
    std::optional<std::uint16_t> parameterCount;
    std::uint16_t channelCount = 0;
    // Written as the bytes of the records unless set.
    std::optional<std::int32_t> parameterLength;
    std::vector<Record> records;
    std::uint16_t previewTag = 2;
    std::vector<std::uint8_t> preview;
    std::optional<std::int32_t> previewLength;
    std::vector<Channel> channels;
    std::vector<std::uint8_t> trailer;

    // The first record of an identifier, or null.
    Record* Find(std::uint16_t id);
    // Gives the first record of the identifier this value, or appends one.
    Record& Set(std::uint16_t id, std::vector<std::uint8_t> value);
    // Takes out every record of the identifier.
    void Remove(std::uint16_t id);
    // Puts a record in front of the first one of an identifier (at the end
    // when there is none).
    void InsertBefore(std::uint16_t beforeId, Record record);

    std::vector<std::uint8_t> Bytes() const;
    void Save(const std::string& path) const;

    static std::vector<std::uint8_t> Word(std::uint16_t value);
    static std::vector<std::uint8_t> Dword(std::uint32_t value);
    static std::vector<std::uint8_t> Double(double value);
    static std::vector<std::uint8_t> Text(const std::string& value);
    // The standard pixels of a channel: count raw values that use the whole
    // width of a pixel of that many bytes.
    static std::vector<std::uint32_t> Ramp(std::size_t count, std::uint16_t bytesPerPixel);
    // The standard records, in the order the writer of the format keeps.
    static std::vector<Record> StandardRecords(std::uint16_t channelCount, std::uint16_t width, std::uint16_t height);
    static Channel StandardChannel(std::size_t index, std::uint16_t width, std::uint16_t height,
                                   std::uint16_t bytesPerPixel);
};

}  // namespace SampleKit

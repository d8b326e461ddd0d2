#pragma once

// Fixed numbers and refusal texts of the ".tef" byte layout, shared by the
// walker and the writers.

#include <cstdint>

namespace TefFormat {

inline constexpr std::uint8_t kNoteEnd = 0x1A;

inline constexpr std::uint16_t kDocumentTag = 1;
inline constexpr std::uint16_t kPreviewTag = 2;
inline constexpr std::uint16_t kChannelTag = 3;
inline constexpr std::uint16_t kImageTag = 42;

// The document head: tag, parameter length, major, minor, parameter count,
// channel count; the parameter records start behind it.
inline constexpr std::uint32_t kDocumentHeadSize = 14;
// Of a channel section, the part in front of the header block (tag, length)
// and the image block from its tag to the first pixel.
inline constexpr std::uint32_t kSectionHeadSize = 6;
inline constexpr std::uint32_t kImageHeadSize = 16;
inline constexpr std::uint32_t kImageBlockSize = 32;
// Bytes of pixels that a file rewritten to its stated size may lack at its
// very end: the stated size does not count the preview section's six bytes.
inline constexpr std::uint32_t kRewriteLoss = 6;
inline constexpr std::uint16_t kRawDataSteps = 1;
inline constexpr std::uint16_t kForwardDirection = 1;
inline constexpr std::uint16_t kBackwardDirection = 2;

// Identifier and size in front of each parameter record's value.
inline constexpr std::uint32_t kRecordHeadSize = 4;
// What the pixels of a written file are: words with all 16 bits in use.
inline constexpr std::uint16_t kWrittenBytesPerPixel = 2;
inline constexpr std::uint16_t kWrittenBitsInUse = 16;

// The per-channel groups cover eight channels.
inline constexpr std::uint16_t kChannelGroupSize = 8;

namespace Id {
inline constexpr std::uint16_t kScanSizeX = 2;
inline constexpr std::uint16_t kScanSizeY = 3;
inline constexpr std::uint16_t kFeedbackMode = 6;
inline constexpr std::uint16_t kWidth = 7;
inline constexpr std::uint16_t kHeight = 8;
inline constexpr std::uint16_t kScanRate = 9;
inline constexpr std::uint16_t kTipSerialNumber = 10;
inline constexpr std::uint16_t kBitsInUse = 11;
inline constexpr std::uint16_t kKept12 = 12;
inline constexpr std::uint16_t kKept13 = 13;
inline constexpr std::uint16_t kDateTime = 16;
inline constexpr std::uint16_t kRotation = 18;
inline constexpr std::uint16_t kValue19 = 19;
inline constexpr std::uint16_t kKept20 = 20;
inline constexpr std::uint16_t kKept21 = 21;
inline constexpr std::uint16_t kDrive = 23;
inline constexpr std::uint16_t kSetpoint = 24;
inline constexpr std::uint16_t kKept25 = 25;
inline constexpr std::uint16_t kKept26 = 26;
inline constexpr std::uint16_t kKept27 = 27;
inline constexpr std::uint16_t kUnit = 100;          // 100+i
inline constexpr std::uint16_t kZRange = 108;        // 108+i
inline constexpr std::uint16_t kChannelCount = 116;
inline constexpr std::uint16_t kXOffset = 117;
inline constexpr std::uint16_t kYOffset = 118;
inline constexpr std::uint16_t kKept119 = 119;
inline constexpr std::uint16_t kKept120 = 120;
inline constexpr std::uint16_t kRangeOrigin = 121;   // 121+i
inline constexpr std::uint16_t kAuxiliary = 129;     // 129+i
inline constexpr std::uint16_t kStoredName = 137;    // 137+i
inline constexpr std::uint16_t kKept145 = 145;
inline constexpr std::uint16_t kChannelBits = 146;   // 146+i
}  // namespace Id

inline constexpr const char* kContactMode = "Contact";
inline constexpr const char* kTappingMode = "Tapping";
inline constexpr const char* kForward = "Forward";
inline constexpr const char* kBackward = "Backward";
inline constexpr const char* kLegacyLogUnit = "lg(I[nA])";
inline constexpr const char* kLogUnit = "log(nA)";

namespace Message {
inline constexpr const char* kExpectingDocument = "Expecting document data, file misaligned";
inline constexpr const char* kExpectingParameterEnd = "Expecting end of parameter data, file misaligned";
inline constexpr const char* kExpectingPreview = "Expecting preview data, file misaligned";
inline constexpr const char* kExpectingChannel = "Expecting channel data, file misaligned";
inline constexpr const char* kOnlyRawData = "Only files with one processing step (raw data) are supported.";
inline constexpr const char* kExpectingImage = "Expecting image data, file misaligned";
inline constexpr const char* kTwoWidths = "There are two values in the file for Image Pixel Width.";
inline constexpr const char* kTwoHeights = "There are two values in the file for Image Pixel Height.";
inline constexpr const char* kPixelWidth = "Only 16 Bit and 32 Bit pixel data are supported.";
inline constexpr const char* kDataMisaligned = "Data for this file has been misaligned.";
inline constexpr const char* kTwoChannelCounts = "Two different values in file for number of channels.";
inline constexpr const char* kExpectingWord = "Expecting WORD, wrong size for parameter.";
inline constexpr const char* kExpectingDword = "Expecting DWORD, wrong size for parameter.";
inline constexpr const char* kExpectingDouble = "Expecting double, wrong size for parameter.";
// Our own refusals of damage that the layout itself does not name: a read
// or jump past either end of the file, and channel sections that lead back
// over image data already read.
inline constexpr const char* kUnexpectedEnd = "Unexpected end of file, file misaligned";
inline constexpr const char* kImageDataOverlaps = "Image data lies over other image data, file misaligned";

// Refusals of the writers, which rebuild a file from the one it was loaded
// from and the source's values.
inline constexpr const char* kNoChannelData = "File contains no channel data.";
inline constexpr const char* kNewSizeInvalid = "New file size invalid";
inline constexpr const char* kZRangeMisaligned = "Z Range parameters misaligned";
inline constexpr const char* kBitsMisaligned = "Bits Using parameters misaligned";
inline constexpr const char* kNot16Bit = "This must be a 16 bit data file.";
inline constexpr const char* kChannelOutOfSynch = "Channel data not in synch, file misaligned";
inline constexpr const char* kNoOriginalChannelData = "No channel data in original file.";
// Ours: a value that would land past the end of the new file, and a file
// without the unit records where the rebuilt parameters begin.
inline constexpr const char* kBeyondNewFile = "Data lies beyond the end of the new file, file misaligned";
inline constexpr const char* kNoUnitsInOriginal = "No channel units in original file.";
}  // namespace Message

}  // namespace TefFormat

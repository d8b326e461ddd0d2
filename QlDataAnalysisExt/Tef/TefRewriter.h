#pragma once

// Builds the bytes of a ".tef" file anew from a source and the bytes of the
// file the source was loaded from. The old bytes are read again rather than
// kept, so everything the source did not understand goes back as it stood.
// A file built here always has 2-byte pixels with 16 bits in use.
//
// Every read of the old bytes is bounded by them and every write by the new
// buffer; damage raises std::runtime_error with its fixed text.
//
// Sources, by concern:
//   TefRewriter.cpp        the parts both files share: note, sections, pixels
//   TefRewriterPatch.cpp   the file as it was, patched
//   TefRewriterRebuild.cpp the file with its parameters rebuilt for the channels

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

class TefByteReader;
class TefByteWriter;
class TefOLDataSource;

class TefRewriter {
public:
    TefRewriter(const TefOLDataSource& source, std::span<const std::uint8_t> original);

    // ---- TefRewriterPatch.cpp ----
    // The old file with the source's note, Z ranges, bits in use and pixels:
    // patched where it stands on a file of 2-byte pixels, with its channel
    // sections rebuilt on one of 4-byte pixels. Nothing when the memory for
    // it cannot be had.
    std::optional<std::vector<std::uint8_t>> Patched() const;

    // ---- TefRewriterRebuild.cpp ----
    // The old file up to its channel units, then the parameters from there on
    // and a section for each of the source's channels. Its size is the one
    // the format has always stated, which may cut the last pixels short or
    // leave zeros at the end. Nothing when the memory cannot be had.
    std::optional<std::vector<std::uint8_t>> Rebuilt() const;

private:
    // ---- TefRewriter.cpp ----
    // The source's note, when it was changed, over the note area of the new
    // file, which keeps its size.
    void UpdateNote(TefByteWriter& out) const;
    // One section at the position of each reader: the new one patched where
    // it stands, or the old one written anew at the writer's position.
    void PatchSection(unsigned channel, TefByteReader& copy, TefByteWriter& out) const;
    void RebuildSection(unsigned channel, TefByteReader& old, TefByteWriter& out) const;
    void WritePixels(unsigned channel, TefByteWriter& out) const;
    // The pixel array of a channel that holds count values.
    const std::vector<std::int32_t>& PixelsFor(unsigned channel, std::uint64_t count) const;
    // The channels whose sections are written: the source's count, within
    // its items.
    unsigned SectionCount() const;
    static std::optional<std::vector<std::uint8_t>> Zeros(std::uint64_t size);

    // ---- TefRewriterPatch.cpp ----
    std::uint64_t PatchedSize() const;
    // A group of per-channel records written over in place, from its first
    // value on: the records must lie end to end, each of the group's next
    // identifier and of the value's size, or message is raised.
    template <class Write>
    void PatchGroup(std::span<const std::uint8_t> bytes, std::uint32_t firstValue, std::uint16_t firstId,
                    std::uint16_t valueSize, const char* message, Write write) const;

    // ---- TefRewriterRebuild.cpp ----
    std::uint64_t RebuiltSize(std::uint32_t head, unsigned channels) const;
    void PatchHead(TefByteWriter& out, unsigned channels) const;
    void WriteRecords(TefByteWriter& out, unsigned channels) const;

    const TefOLDataSource& source_;
    std::span<const std::uint8_t> original_;
};

#include "QlDataAnalysisExt/Tef/TefWalker.h"

#include "QlDataAnalysisExt/Tef/TefFormat.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

void TefWalker::Walk(const std::uint8_t* data, std::size_t size, TefDocument& document)
{
    TefWalker(TefByteReader(data, size), document).WalkAll();
}

void TefWalker::Walk(std::size_t size, TefByteReader::Fetch fetch, TefDocument& document)
{
    TefWalker(TefByteReader(size, std::move(fetch)), document).WalkAll();
}

TefWalker::TefWalker(TefByteReader reader, TefDocument& document) : reader_(std::move(reader)), document_(document) {}

void TefWalker::WalkAll()
{
    ReadNote();
    ReadDocumentHead();
    ReadParameters();
    ReadPreview();
    ReadChannelSections();
}

void TefWalker::ReadNote()
{
    const std::optional<std::size_t> end = reader_.Find(TefFormat::kNoteEnd);
    if (!end) {
        // Without the end mark the note is empty and the head is looked for
        // at byte 1, where the tag test then refuses nearly every file.
        reader_.Seek(1);
        return;
    }
    document_.note = reader_.Text(*end);
    document_.hasNoteEnd = true;
    document_.noteEndOffset = static_cast<std::uint32_t>(*end);
    reader_.Skip(1);
}

void TefWalker::ReadDocumentHead()
{
    if (reader_.Word() != TefFormat::kDocumentTag)
        throw std::runtime_error(TefFormat::Message::kExpectingDocument);
    document_.offsets.documentLengthOffset = static_cast<std::uint32_t>(reader_.Position());
    const std::int32_t parameterLength = reader_.Length();
    document_.majorVersion = reader_.Word();
    document_.minorVersion = reader_.Word();
    document_.fileVersion = std::to_string(document_.majorVersion) + "." + std::to_string(document_.minorVersion);
    document_.parameterCount = reader_.Word();
    document_.fileChannelCount = reader_.Word();
    document_.channels.assign(static_cast<std::size_t>(document_.fileChannelCount), TefChannelSettings{});
    document_.channelTable.assign(static_cast<std::size_t>(document_.fileChannelCount), TefChannelInfo{});
    // The parameter length is kept for the parameter walk, which starts here.
    parameterEnd_ = static_cast<std::int64_t>(reader_.Position()) + parameterLength;
}

void TefWalker::ReadPreview()
{
    if (reader_.Word() != TefFormat::kPreviewTag)
        throw std::runtime_error(TefFormat::Message::kExpectingPreview);
    const std::int32_t previewLength = reader_.Length();
    reader_.Skip(previewLength);
    document_.offsets.firstChannelOffset = static_cast<std::uint32_t>(reader_.Position());
}

// Saving: the file the source was loaded from is read again, rewritten with
// what the host changed, and written whole. No file stays open between.

#include "QlDataAnalysisExt/Tef/TefOLDataSource.h"

#include "Platform/FileSystem.h"
#include "Platform/UserMessage.h"
#include "QlDataAnalysisExt/Tef/TefRewriter.h"

#include <exception>
#include <memory>
#include <new>
#include <optional>

namespace {

// The misspelling is the text users have always been shown.
constexpr const char* kUnknownSaveFailure = "An uknown exception was caught while saving the file.";

// A refused save reaches the user with the refusal's own text; the new file
// is then not written and the buffers are gone with the stack.
template <class Save>
bool Guarded(Save save)
{
    try {
        return save();
    } catch (const std::exception& error) {
        Orx::Core::ShowUserMessage(error.what());
    } catch (...) {
        Orx::Core::ShowUserMessage(kUnknownSaveFailure);
    }
    return false;
}

}  // namespace

bool TefOLDataSource::SaveAs(const std::string& path, bool)
{
    // The source keeps its path: a later Save goes where it always went.
    return Guarded([&] {
        std::vector<std::uint8_t> original;
        if (ReadOriginal(original) == 0)
            return false;
        const std::optional<std::vector<std::uint8_t>> bytes = TefRewriter(*this, original).Patched();
        return bytes && WriteBuffer(path, *bytes);
    });
}

bool TefOLDataSource::RewriteChannels(const std::string& path)
{
    return Guarded([&] {
        std::vector<std::uint8_t> original;
        if (ReadOriginal(original) == 0)
            return false;
        const std::optional<std::vector<std::uint8_t>> bytes = TefRewriter(*this, original).Rebuilt();
        if (!bytes || !WriteBuffer(path, *bytes))
            return false;
        // Only a file that was written becomes the source's file, so that a
        // failed write leaves the source as it was.
        filePath = path;
        SetFileTitleFromPath();
        return true;
    });
}

bool TefOLDataSource::SaveChannelAs(unsigned channel, const std::string& path, bool flag)
{
    // The channel is taken from the file as it stands on disk, through a
    // source of its own whose other channels are removed.
    std::unique_ptr<TefOLDataSource> single;
    try {
        single = std::make_unique<TefOLDataSource>(GetFilePath());
    } catch (const std::bad_alloc&) {
        return false;
    }
    single->Initialize();
    single->SaveAs(path, flag);
    const int count = single->GetNumberOfChannels();
    for (int c = count - 1; c >= 0; --c) {
        if (static_cast<unsigned>(c) == channel)
            continue;
        single->RemoveChannel(static_cast<unsigned>(c));
        single->SetNumberOfChannels(single->GetNumberOfChannels() - 1);
        single->SetNumberOfDisplayChannels(single->GetNumberOfDisplayChannels() - 1);
    }
    return single->RewriteChannels(path);
}

std::uint32_t TefOLDataSource::ReadOriginal(std::vector<std::uint8_t>& contents) const
{
    Orx::Core::RandomAccessFile file;
    if (!file.Open(filePath))
        return 0;
    // Only the low 32 bits of the length were ever used.
    const auto length = static_cast<std::uint32_t>(file.Length());
    if (length == 0)
        return 0;
    try {
        contents.assign(length, 0);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    try {
        file.ReadAt(0, contents.data(), length);
    } catch (const Orx::Core::FileException& error) {
        Orx::Core::ShowUserMessage(error.what());
        contents = {};
        return 0;
    }
    return length;
}

bool TefOLDataSource::WriteBuffer(const std::string& path, const std::vector<std::uint8_t>& contents)
{
    // A file that cannot be created fails without a word, as opening one
    // always did; a failure once it exists is told with its own report.
    std::optional<Orx::Core::AtomicFileWriter> file;
    try {
        file.emplace(path);
    } catch (const Orx::Core::FileException&) {
        return false;
    }
    try {
        file->Write(contents.data(), contents.size());
        file->Commit();
    } catch (const Orx::Core::FileException& error) {
        Orx::Core::ShowUserMessage(error.what());
        return false;
    }
    return true;
}

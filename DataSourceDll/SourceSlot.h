#pragma once

// A place that holds one opened source: the one current source of the flat
// exports, or the source of a handle. Opening fills both alike, so that the
// flat Open and the handles choose and start a file's source by the same steps.

#include <memory>
#include <string>

class IOLDataSource;
class ICreateColorTableCallback;

class SourceSlot {
public:
    SourceSlot();
    ~SourceSlot();
    SourceSlot(const SourceSlot&) = delete;
    SourceSlot& operator=(const SourceSlot&) = delete;

    // The source, null when none is held.
    IOLDataSource* Source() const { return current_; }
    // The text that chose the family of the source (".tef" for that
    // extension); empty when none is held.
    const std::string& FileType() const { return fileType_; }

    // Makes source the slot's source; the one before is released, not closed.
    void Install(std::shared_ptr<IOLDataSource> source, std::unique_ptr<ICreateColorTableCallback> callback,
                 std::string fileType);
    // Closes the slot's source, if any, and releases it.
    void CloseCurrent();
    // Releases the slot's source without closing it.
    void Release();

private:
    IOLDataSource* current_ = nullptr;
    std::shared_ptr<IOLDataSource> owner_;
    // The callback object lives as long as the source it was made for.
    std::unique_ptr<ICreateColorTableCallback> callback_;
    std::string fileType_;
};

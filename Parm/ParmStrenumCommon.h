#pragma once

// The list part of a string enumeration: an index into a list of texts that
// ends at a null pointer or an empty text. When the parameter part of the same
// object (owner) follows a link, the index is read through that link.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class parm;

class ParmStrenumCommon {
public:
    ParmStrenumCommon() = default;
    ParmStrenumCommon(const ParmStrenumCommon&) = delete;
    ParmStrenumCommon& operator=(const ParmStrenumCommon&) = delete;

    virtual ~ParmStrenumCommon();
    // The text at GetIndex(), or null.
    virtual const char* GetTextAtIndexOfLink() const;
    // The linked value (kind 1) when the owner follows its link, else index.
    virtual int GetIndex() const;
    // Takes the index from GetIndex().
    virtual void ReadIndex();
    // The index of the longest text that begins the given text, with that
    // text's length; -1 for none. The walk runs from the last text to the
    // first, so at equal length the higher index wins.
    virtual int ParseIndex(std::string_view text, std::size_t* length) const;
    // Stores i when it lies in the list; answers whether it did.
    virtual bool SetIndexChecked(int i);
    // Copies the text at GetIndex() and answers the index; when there is no
    // such text, copies a single blank and answers 0.
    virtual int CopyText(std::string* buffer) const;
    // A negative i: the text at index; past the list: null.
    virtual const char* GetText(int i) const;
    // The framework's notice to its modules; nothing to do here.
    virtual void OnModuleNotification();

    // Entries before the first null pointer or empty text; 0 without a list.
    int Count() const;
    bool IsInList(std::int64_t i) const { return i >= 0 && i < Count(); }

    // Fields, in declared order.
    std::int32_t index = 0;
    const char* const* texts = nullptr;
    std::int32_t trialIndex = 0;
    parm* owner = nullptr;
};

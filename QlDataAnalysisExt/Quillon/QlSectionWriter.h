#pragma once

// One section of a Quillon file as a save writes it: a key the section holds
// takes the new value, and a key it lacks stays absent, so that a save never
// adds a key the instrument did not write. A missing section is written to as
// nothing at all.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <initializer_list>
#include <string>

class QlSectionWriter {
public:
    QlSectionWriter(DataContainerPtr section, std::string name);

    explicit operator bool() const { return section_ != nullptr; }
    const DataContainerPtr& Section() const { return section_; }
    const std::string& Name() const { return name_; }

    bool Has(const std::string& key) const;
    // The first of the spellings the section holds; "" when it holds none.
    std::string FirstExisting(std::initializer_list<const char*> keys) const;
    // Whether the key's value reads as a whole number, as against a text of two.
    bool HasIntegerForm(const std::string& key) const;
    std::string Text(const std::string& key) const;

    // int32, double, float, std::string, std::vector<std::string> and UValue.
    template <class T>
    void Set(const std::string& key, const T& value) const;
    void Set(const std::string& key, const char* value) const { Set(key, std::string(value)); }
    // The first of the spellings the section holds takes the value.
    template <class T>
    void SetFirst(std::initializer_list<const char*> keys, const T& value) const {
        const std::string key = FirstExisting(keys);
        if (!key.empty()) {
            Set(key, value);
        }
    }

private:
    DataContainerPtr section_;
    std::string name_;
};

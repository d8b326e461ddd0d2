#pragma once

// One section of a Quillon file, read in the three manners the binding uses:
//   the direct read     typed; a missing or unreadable key leaves the target as it was
//   the parameter read  the key's text; an empty text when the key is missing
//   the has-key read    either of the two, only where the key exists
// and the C runtime's number conversions of the texts, bounded so that no text
// of a file can reach an undefined conversion.

#include "QlDataAnalysisExt/Core/OLTypes.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

class QlSectionReader {
public:
    explicit QlSectionReader(DataContainerPtr section);

    explicit operator bool() const { return section_ != nullptr; }
    const DataContainerPtr& Section() const { return section_; }

    bool Has(const std::string& key) const;

    // The direct read; int32, uint32, double, float, std::string, UValue and
    // the vector of texts.
    template <class T>
    bool Read(const std::string& key, T& target) const;

    // A key and the field of an object that its direct read fills.
    template <class Owner, class T>
    struct Field {
        const char* key;
        T Owner::*target;
    };
    // The direct reads of a table of fields, each set to initial first where one is given.
    template <class Object, class Owner, class T, std::size_t N>
    void ReadFields(Object& object, const Field<Owner, T> (&fields)[N], const T* initial = nullptr) const {
        for (const Field<Owner, T>& field : fields) {
            if (initial) {
                object.*field.target = *initial;
            }
            Read(field.key, object.*field.target);
        }
    }

    // The parameter read: out is cleared, then takes the key's text; false when
    // the key is missing.
    bool Text(const std::string& key, std::string& out) const;
    std::string Text(const std::string& key) const;
    // The parameter text of the first of the keys that exists, "" when none
    // does; found tells whether one did.
    std::string FirstExisting(std::initializer_list<const char*> keys, bool* found = nullptr) const;
    // The first parameter text that is not empty, trying the keys in order.
    std::string FirstNonEmpty(std::initializer_list<const char*> keys) const;
    // The has-key parameter read of a number by atof or atoi: the target is
    // kept where the key is missing.
    bool NumberIfPresent(const std::string& key, double& target) const;
    bool NumberIfPresent(const std::string& key, int& target) const;
    // Whether the key's parameter text is exactly that text.
    bool TextIs(const std::string& key, const char* text) const { return Text(key) == text; }

    // atoi, atof and _atoi64 of the C runtime: leading blanks, a sign, digits;
    // 0 when nothing reads, and a number beyond the type saturates.
    static int AtoI(const std::string& text);
    static double AtoF(const std::string& text);
    static std::int64_t AtoI64(const std::string& text);
    // sscanf(text, "%d %d"): each number that reads replaces its initial value.
    static void ScanPair(const std::string& text, int& first, int& second);

private:
    DataContainerPtr section_;
};

#include "QlDataAnalysisExt/Quillon/QlSectionReader.h"

#include "Platform/DataCore/DataContainer.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <utility>

QlSectionReader::QlSectionReader(DataContainerPtr section) : section_(std::move(section)) {}

bool QlSectionReader::Has(const std::string& key) const { return section_ && section_->HasKey(key); }

template <class T>
bool QlSectionReader::Read(const std::string& key, T& target) const {
    return section_ && section_->GetValue(key, target);
}

template bool QlSectionReader::Read(const std::string&, std::int32_t&) const;
template bool QlSectionReader::Read(const std::string&, std::uint32_t&) const;
template bool QlSectionReader::Read(const std::string&, float&) const;
template bool QlSectionReader::Read(const std::string&, double&) const;
template bool QlSectionReader::Read(const std::string&, std::string&) const;
template bool QlSectionReader::Read(const std::string&, std::vector<std::string>&) const;
template bool QlSectionReader::Read(const std::string&, UValue&) const;

bool QlSectionReader::Text(const std::string& key, std::string& out) const {
    out.clear();
    return section_ && Orx::DataCore::ParameterRead(section_, key, out);
}

std::string QlSectionReader::Text(const std::string& key) const {
    std::string text;
    Text(key, text);
    return text;
}

std::string QlSectionReader::FirstExisting(std::initializer_list<const char*> keys, bool* found) const {
    for (const char* key : keys) {
        if (Has(key)) {
            if (found) {
                *found = true;
            }
            return Text(key);
        }
    }
    if (found) {
        *found = false;
    }
    return {};
}

std::string QlSectionReader::FirstNonEmpty(std::initializer_list<const char*> keys) const {
    std::string text;
    for (const char* key : keys) {
        text = Text(key);
        if (!text.empty()) {
            break;
        }
    }
    return text;
}

namespace {

template <class T, class Convert>
bool ConvertedIfPresent(const QlSectionReader& s, const std::string& key, T& target, Convert convert) {
    std::string text;
    if (!s.Text(key, text)) {
        return false;
    }
    target = convert(text);
    return true;
}

}  // namespace

bool QlSectionReader::NumberIfPresent(const std::string& key, double& target) const {
    return ConvertedIfPresent(*this, key, target, AtoF);
}

bool QlSectionReader::NumberIfPresent(const std::string& key, int& target) const {
    return ConvertedIfPresent(*this, key, target, AtoI);
}

int QlSectionReader::AtoI(const std::string& text) {
    const long long value = AtoI64(text);
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

double QlSectionReader::AtoF(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

std::int64_t QlSectionReader::AtoI64(const std::string& text) {
    // strtoll saturates where the runtime's atoi family leaves the result undefined.
    return std::strtoll(text.c_str(), nullptr, 10);
}

void QlSectionReader::ScanPair(const std::string& text, int& first, int& second) {
    // The format's blank matches any run of white space, and so does the
    // white space that strtoll skips before the second number.
    const char* at = text.c_str();
    char* end = nullptr;
    const long long a = std::strtoll(at, &end, 10);
    if (end == at) {
        return;
    }
    first = static_cast<int>(std::clamp<long long>(a, INT_MIN, INT_MAX));
    at = end;
    const long long b = std::strtoll(at, &end, 10);
    if (end != at) {
        second = static_cast<int>(std::clamp<long long>(b, INT_MIN, INT_MAX));
    }
}

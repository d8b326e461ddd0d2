#include "QlDataAnalysisExt/Quillon/QlSectionWriter.h"

#include "Platform/DataCore/DataContainer.h"

#include <cstdint>
#include <utility>
#include <vector>

QlSectionWriter::QlSectionWriter(DataContainerPtr section, std::string name)
    : section_(std::move(section)), name_(std::move(name)) {}

bool QlSectionWriter::Has(const std::string& key) const { return section_ && section_->HasKey(key); }

std::string QlSectionWriter::FirstExisting(std::initializer_list<const char*> keys) const {
    for (const char* key : keys) {
        if (Has(key)) {
            return key;
        }
    }
    return {};
}

bool QlSectionWriter::HasIntegerForm(const std::string& key) const {
    std::int32_t number = 0;
    return section_ && section_->GetValue(key, number);
}

std::string QlSectionWriter::Text(const std::string& key) const {
    std::string text;
    if (section_) {
        Orx::DataCore::ParameterRead(section_, key, text);
    }
    return text;
}

template <class T>
void QlSectionWriter::Set(const std::string& key, const T& value) const {
    if (section_) {
        section_->SetValue(key, value);
    }
}

template void QlSectionWriter::Set(const std::string&, const std::int32_t&) const;
template void QlSectionWriter::Set(const std::string&, const float&) const;
template void QlSectionWriter::Set(const std::string&, const double&) const;
template void QlSectionWriter::Set(const std::string&, const std::string&) const;
template void QlSectionWriter::Set(const std::string&, const std::vector<std::string>&) const;
template void QlSectionWriter::Set(const std::string&, const UValue&) const;

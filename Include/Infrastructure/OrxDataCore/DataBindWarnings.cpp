#include "Infrastructure/OrxDataCore/DataBindWarnings.h"

#include <boost/format.hpp>

namespace Orx::DataCore {

namespace {

const char* const kCategory = "Orx.DataCore";

// Two of the historic texts end a directive without its closing percent
// sign. The formatting library of their time read a bare %N as the N-th
// argument all the same; the present one refuses it, so a bare directive is
// closed here and the texts keep their spelling.
std::string closeBareDirectives(const std::string& format) {
    std::string out;
    for (std::size_t i = 0; i < format.size(); ++i) {
        out.push_back(format[i]);
        if (format[i] != '%') {
            continue;
        }
        if (i + 1 < format.size() && format[i + 1] == '%') {
            out.push_back('%');
            ++i;
            continue;
        }
        std::size_t j = i + 1;
        while (j < format.size() && format[j] >= '0' && format[j] <= '9') {
            ++j;
        }
        if (j == i + 1) {
            continue;
        }
        out.append(format, i + 1, j - i - 1);
        if (j >= format.size() || (format[j] != '%' && format[j] != '$')) {
            out.push_back('%');
        }
        i = j - 1;
    }
    return out;
}

template <class A, class B>
std::string formatText(const char* format, const A& a, const B& b) {
    return (boost::format(closeBareDirectives(format)) % a % b).str();
}

}  // namespace

UnboundTypeMismatch::UnboundTypeMismatch(const std::string& storedType, const std::string& requestedType,
                                         Orx::Core::CodeContext context)
    : Warning(formatText("Attempted to bind unbound data of type \"%1%\" as \"%2\"", storedType, requestedType),
              kCategory, std::move(context)) {}

NullSerializerForDataBind::NullSerializerForDataBind(const std::string& wrapperType, const std::string& storedType,
                                                     Orx::Core::CodeContext context)
    : Warning(formatText("Attempted to bind unbound data to a %1% storing a %2%", wrapperType, storedType), kCategory,
              std::move(context)) {}

UnboundSizeMismatch::UnboundSizeMismatch(std::uint64_t unboundSize, std::uint64_t serializerSize,
                                         Orx::Core::CodeContext context)
    : Warning(formatText("Attempted to bind unbound data with size %1% to size %2\n", unboundSize, serializerSize),
              kCategory, std::move(context)) {}

}  // namespace Orx::DataCore

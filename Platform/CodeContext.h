#pragma once

#include <string>

namespace Orx::Core {

// Where an alert was raised: file, line, build date and function.
struct CodeContext {
    std::string file;
    int line = 0;
    std::string date;
    std::string function;
};

}  // namespace Orx::Core

#define ORX_CODE_CONTEXT (::Orx::Core::CodeContext{__FILE__, __LINE__, __DATE__, __func__})

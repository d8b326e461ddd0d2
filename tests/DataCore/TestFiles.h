#pragma once

#include "Platform/FileSystem.h"
#include "support/TestTempPath.h"
#include "support/FileBytes.h"

#include <cstdint>
#include <string>
#include <vector>

// Paths and bytes of the files the DataCore tests write.
namespace DataCoreTest {

// In the test's own folder (see TestTempPath).
inline std::string TempPath(const std::string& name) { return TestTempPath(name); }

inline std::vector<std::uint8_t> ReadBytes(const std::string& path) { return TestSupport::BytesOf(path); }

inline void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    Orx::Core::WriteFileAtomically(path, bytes.data(), bytes.size());
}

inline std::string AsText(const std::vector<std::uint8_t>& bytes) { return std::string(bytes.begin(), bytes.end()); }

inline std::vector<std::uint8_t> AsBytes(const std::string& text) { return {text.begin(), text.end()}; }

// The lines of a header from "section <quoted name>" to its "end", both included.
inline std::string SectionText(const std::string& header, const std::string& quotedName) {
    auto start = header.find("section " + quotedName + "\n");
    if (start == std::string::npos) {
        return {};
    }
    auto lineStart = header.rfind('\n', start);
    std::string indent = header.substr(lineStart + 1, start - lineStart - 1);
    auto end = header.find("\n" + indent + "end\n", start);
    return end == std::string::npos ? std::string() : header.substr(start, end + indent.size() + 5 - start);
}

}  // namespace DataCoreTest

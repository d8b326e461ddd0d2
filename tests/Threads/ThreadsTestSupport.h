#pragma once

// Files of every family written by the sample builders, and every reader of
// the two surfaces called through one description, for the tests of handles.

#include "support/TestTempPath.h"

#include "DataSourceDll/DataSourceDll.h"
#include "QlDataAnalysisExt/Harlen/HarlenOLDataSource.h"
#include "tools/samplekit/HarlenBuilder.h"
#include "tools/samplekit/QuillonBuilder.h"
#include "tools/samplekit/TefBuilder.h"

#include <cstring>
#include <deque>
#include <string>
#include <tuple>
#include <vector>

namespace ThreadsTest {

using SampleKit::HarlenBuilder;
using SampleKit::QuillonBuilder;
using SampleKit::TefBuilder;

struct SampleFile {
    std::string name;
    std::string path;
};

// A Quillon force volume whose curves are read through the capture: the
// invalid-point repair writes into the source, and the capture Z sets up the
// process-wide phase and amplitude.
inline void WriteCaptureVolume(const std::string& path, double syncDistance) {
    QuillonBuilder file("FVOL");
    file.Text(QuillonBuilder::kScanList, "Crestload Capture", "On")
        .Double(QuillonBuilder::kScanList, "Sync Distance", syncDistance);
    file.Write(path);
}

// One file of each family and of each kind the readers tell apart.
inline std::vector<SampleFile> WriteSampleFiles() {
    std::vector<SampleFile> files;
    auto add = [&files](const std::string& name) -> const std::string& {
        files.push_back({name, TestTempPath("threads_" + name)});
        return files.back().path;
    };
    TefBuilder tef(2, 8, 6, 2);
    tef.Save(add("image.tef"));
    TefBuilder wide(1, 5, 4, 4);
    wide.Save(add("wide.TEF"));
    for (const char* subtype : {"IMAGE", "FORCE", "SCRIPT", "HSDC", "TIMED", "ECSTM"}) {
        QuillonBuilder(subtype).Write(add(std::string("quillon_") + subtype + ".qdf"));
    }
    WriteCaptureVolume(add("quillon_FVOL.qdf"), 16.5);
    HarlenBuilder::Image(16, 12).Write(add("harlen_image.hdf"));
    HarlenBuilder::Force(64, 8).Write(add("harlen_force8.hdf"));
    HarlenBuilder::Force(32, 16).Write(add("harlen_force16.hdf"));
    return files;
}

// Everything that the calls of a reader gave back: results, texts, and the
// contents of every buffer they were handed.
struct CallRecord {
    std::vector<int> results;
    std::vector<std::string> texts;
    std::vector<double> doubles;
    std::vector<int> ints;
    std::vector<float> floats;
    std::vector<char> chars;

    bool operator==(const CallRecord&) const = default;
};

// Arguments of one call: the first integer is a, every later one b (a
// channel or index, then a count or size); every pointer is a fresh buffer
// large enough for any size b names, filled with a mark so that what a call
// leaves alone is seen too.
class CallArguments {
public:
    static constexpr std::size_t kCapacity = 8192;

    CallArguments(int a, int b) : a_(a), b_(b) {}

    template <class T>
    T Make() {
        if constexpr (std::is_same_v<T, int>) {
            return integers_++ == 0 ? a_ : b_;
        } else if constexpr (std::is_same_v<T, bool>) {
            return (a_ & 1) == 0;
        } else if constexpr (std::is_same_v<T, double*>) {
            return doubles_.emplace_back(kCapacity, -7777.25).data();
        } else if constexpr (std::is_same_v<T, int*>) {
            return ints_.emplace_back(kCapacity, -7777).data();
        } else if constexpr (std::is_same_v<T, float*>) {
            return floats_.emplace_back(kCapacity, -7777.25f).data();
        } else {
            static_assert(std::is_same_v<T, char*>, "a parameter type that no reader has");
            return chars_.emplace_back(kCapacity, '#').data();
        }
    }

    void AppendTo(CallRecord& record) const {
        for (const auto& b : doubles_) record.doubles.insert(record.doubles.end(), b.begin(), b.end());
        for (const auto& b : ints_) record.ints.insert(record.ints.end(), b.begin(), b.end());
        for (const auto& b : floats_) record.floats.insert(record.floats.end(), b.begin(), b.end());
        for (const auto& b : chars_) record.chars.insert(record.chars.end(), b.begin(), b.end());
    }

private:
    int a_;
    int b_;
    int integers_ = 0;
    std::deque<std::vector<double>> doubles_;
    std::deque<std::vector<int>> ints_;
    std::deque<std::vector<float>> floats_;
    std::deque<std::vector<char>> chars_;
};

inline void Answer(int result, CallRecord& record) { record.results.push_back(result); }
inline void Answer(char* text, CallRecord& record) {
    record.texts.push_back(text ? text : "(null)");
    DataSourceDllFreeString(text);
}

// Calls the flat function, or with a handle its handle twin, with the
// arguments that (a, b) make, and records what came back.
template <class Result, class... Args>
void CallReader(Result (*flat)(Args...), Result (*handled)(DataSourceDllHandle*, Args...),
                DataSourceDllHandle* handle, bool viaHandle, int a, int b, CallRecord& record) {
    CallArguments arguments(a, b);
    // A braced list is evaluated from left to right: the first integer is a.
    std::tuple<Args...> values{arguments.template Make<Args>()...};
    if (viaHandle) {
        Answer(std::apply([&](Args... v) { return handled(handle, v...); }, values), record);
    } else {
        Answer(std::apply(flat, values), record);
    }
    arguments.AppendTo(record);
}

struct SurfaceReader {
    const char* name;
    void (*call)(DataSourceDllHandle* handle, bool viaHandle, int a, int b, CallRecord& record);
};

// Every reader of a file that both surfaces have.
inline const std::vector<SurfaceReader>& SurfaceReaders() {
#define DS_SURFACE_ROW(Name)                                                                          \
    {#Name, [](DataSourceDllHandle* handle, bool viaHandle, int a, int b, CallRecord& record) {      \
         CallReader(&DataSourceDll##Name, &DataSourceDllHandle##Name, handle, viaHandle, a, b, record); \
     }},
#define DS_READER(kind, Name, params, args, call) DS_SURFACE_ROW(Name)
#define DS_VARIANT(kind, Name, params, Reader, args) DS_SURFACE_ROW(Name)
#define DS_NONMEMBER_READER(kind, Name, params, call) DS_SURFACE_ROW(Name)
    static const std::vector<SurfaceReader> readers = {
#include "DataSourceDll/DataSourceReaderTable.h"
    };
#undef DS_SURFACE_ROW
    return readers;
}

// The (a, b) pairs every reader is called with: channels and indexes from
// -1 to 2, with sizes from none to more than any sample file holds.
inline const std::vector<std::pair<int, int>>& ArgumentPairs() {
    static const std::vector<std::pair<int, int>> pairs = {{-1, 4096}, {0, 0}, {0, 3}, {0, 4096},
                                                           {1, 16},    {1, 4096}, {2, 4096}};
    return pairs;
}

// What every reader answers for a file, through one surface.
inline CallRecord ReadEverything(DataSourceDllHandle* handle, bool viaHandle) {
    CallRecord record;
    for (const auto& reader : SurfaceReaders()) {
        for (const auto& [a, b] : ArgumentPairs()) {
            reader.call(handle, viaHandle, a, b, record);
        }
    }
    return record;
}

// The unit system of a Harlen source depends on whether it read the
// process's first deflection row; each open here starts from that state, so
// that two opens of one file give the same source.
inline DataSourceDllHandle* OpenFresh(const std::string& path) {
    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    return DataSourceDllOpenHandle(path.c_str());
}
inline int OpenFreshFlat(const std::string& path) {
    HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
    return DataSourceDllOpen(const_cast<char*>(path.c_str()));
}

}  // namespace ThreadsTest

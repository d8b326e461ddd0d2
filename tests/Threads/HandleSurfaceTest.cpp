// The handle functions against the flat ones: the same answers for the same
// file, handles that leave the current file alone, and handles that are no
// longer open answering as no file does.

#include "ThreadsTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

using namespace ThreadsTest;

namespace {

class HandleSurfaceTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { files = new std::vector<SampleFile>(WriteSampleFiles()); }
    static void TearDownTestSuite() {
        delete files;
        files = nullptr;
    }
    void TearDown() override { DataSourceDllClose(); }

    static const std::string& PathOf(const std::string& name) {
        for (const auto& f : *files) {
            if (f.name == name) {
                return f.path;
            }
        }
        throw std::runtime_error("no sample " + name);
    }

    static std::vector<SampleFile>* files;
};
std::vector<SampleFile>* HandleSurfaceTest::files = nullptr;

std::string TakeText(char* text) {
    std::string out = text ? text : "(null)";
    DataSourceDllFreeString(text);
    return out;
}

int Channels(DataSourceDllHandle* handle) {
    int count = -5;
    return DataSourceDllHandleGetNumberOfChannels(handle, &count) == 1 ? count : -5;
}

}  // namespace

TEST_F(HandleSurfaceTest, EveryReaderAnswersThroughAHandleAsTheFlatFunctionDoesForEveryKindOfFile) {
    for (const auto& file : *files) {
        SCOPED_TRACE(file.name);
        ASSERT_EQ(OpenFreshFlat(file.path), 1);
        DataSourceDllHandle* handle = OpenFresh(file.path);
        ASSERT_NE(handle, nullptr);
        for (const auto& reader : SurfaceReaders()) {
            for (const auto& [a, b] : ArgumentPairs()) {
                CallRecord flat, handled;
                reader.call(nullptr, false, a, b, flat);
                reader.call(handle, true, a, b, handled);
                EXPECT_EQ(flat, handled) << reader.name << "(" << a << ", " << b << ")";
            }
        }
        EXPECT_EQ(DataSourceDllCloseHandle(handle), 1);
    }
}

TEST_F(HandleSurfaceTest, TheFileIsOpenedAsTheFlatOpenWouldWithItsFamilyNamed) {
    struct Case {
        const char* file;
        const char* type;
        int kinds;
    };
    const Case cases[] = {
        {"image.tef", ".tef", DATASOURCEDLL_KIND_IMAGE},
        {"wide.TEF", ".tef", DATASOURCEDLL_KIND_IMAGE},
        {"quillon_IMAGE.qdf", "Quillon Data File", DATASOURCEDLL_KIND_IMAGE},
        {"quillon_FVOL.qdf", "Quillon Data File", DATASOURCEDLL_KIND_FORCE_VOLUME},
        {"quillon_SCRIPT.qdf", "Quillon Data File", DATASOURCEDLL_KIND_SCRIPT},
        {"quillon_HSDC.qdf", "Quillon Data File", DATASOURCEDLL_KIND_HIGH_SPEED},
        {"quillon_TIMED.qdf", "Quillon Data File", DATASOURCEDLL_KIND_TIMED},
        {"harlen_image.hdf", "Harlen Data File", DATASOURCEDLL_KIND_IMAGE | DATASOURCEDLL_KIND_HARLEN},
        {"harlen_force8.hdf", "Harlen Data File", DATASOURCEDLL_KIND_FORCE | DATASOURCEDLL_KIND_HARLEN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        DataSourceDllHandle* handle = OpenFresh(PathOf(c.file));
        ASSERT_NE(handle, nullptr);
        EXPECT_EQ(TakeText(DataSourceDllHandleGetFileTypeText(handle)), c.type);
        int kinds = 0;
        EXPECT_EQ(DataSourceDllHandleGetFileKinds(handle, &kinds), 1);
        EXPECT_EQ(kinds & c.kinds, c.kinds);
        ASSERT_EQ(OpenFreshFlat(PathOf(c.file)), 1);
        EXPECT_EQ(TakeText(DataSourceDllGetFileTypeText()), c.type);
        int flatKinds = 0;
        EXPECT_EQ(DataSourceDllGetFileKinds(&flatKinds), 1);
        EXPECT_EQ(flatKinds, kinds);
        DataSourceDllCloseHandle(handle);
    }
}

TEST_F(HandleSurfaceTest, TheExtensionComesBeforeTheContentsAsForTheFlatOpen) {
    // A Quillon file under the ".tef" extension is read as a ".tef" file, and
    // refused; under any other extension it is known by its type text.
    const std::string disguised = TestTempPath("threads_quillon_as.TeF");
    const std::string plain = TestTempPath("threads_quillon_as.bin");
    QuillonBuilder("IMAGE").Write(disguised);
    QuillonBuilder("IMAGE").Write(plain);
    EXPECT_EQ(DataSourceDllOpenHandle(disguised.c_str()), nullptr);
    EXPECT_EQ(DataSourceDllOpen(const_cast<char*>(disguised.c_str())), -1);
    DataSourceDllHandle* handle = DataSourceDllOpenHandle(plain.c_str());
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(TakeText(DataSourceDllHandleGetFileTypeText(handle)), "Quillon Data File");
    DataSourceDllCloseHandle(handle);
}

TEST_F(HandleSurfaceTest, FilesThatDoNotOpenGiveNoHandle) {
    const std::string missing = TestTempPath("threads_missing.qdf");
    const std::string unknownType = TestTempPath("threads_unknown_type.qdf");
    const std::string noChannels = TestTempPath("threads_no_channels.tef");
    // A container of another type text belongs to no family.
    SampleKit::ContainerBuilder("Some Other File").Section("List").Int("Lines", 4).Write(unknownType);
    TefBuilder empty(1, 4, 3, 2);
    empty.channels.clear();
    empty.Save(noChannels);

    EXPECT_EQ(DataSourceDllOpenHandle(nullptr), nullptr);
    EXPECT_EQ(DataSourceDllOpenHandle(missing.c_str()), nullptr);
    EXPECT_EQ(DataSourceDllOpenHandle(unknownType.c_str()), nullptr);
    EXPECT_EQ(DataSourceDllOpenHandle(noChannels.c_str()), nullptr);
}

TEST_F(HandleSurfaceTest, HandlesAndTheCurrentFileLeaveEachOtherAlone) {
    ASSERT_EQ(OpenFreshFlat(PathOf("image.tef")), 1);
    DataSourceDllHandle* quillon = OpenFresh(PathOf("quillon_FVOL.qdf"));
    DataSourceDllHandle* harlen = OpenFresh(PathOf("harlen_force8.hdf"));
    ASSERT_NE(quillon, nullptr);
    ASSERT_NE(harlen, nullptr);
    EXPECT_NE(quillon, harlen);

    // Opening and closing handles does not touch the current file...
    int flatChannels = 0;
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&flatChannels), 1);
    EXPECT_EQ(flatChannels, 2);
    EXPECT_EQ(DataSourceDllCloseHandle(harlen), 1);
    EXPECT_EQ(DataSourceDllGetNumberOfChannels(&flatChannels), 1);
    EXPECT_EQ(flatChannels, 2);

    // ...and closing or failing to open the current file does not touch the handles.
    const int volumeChannels = Channels(quillon);
    EXPECT_GT(volumeChannels, 0);
    EXPECT_EQ(DataSourceDllClose(), 1);
    EXPECT_EQ(Channels(quillon), volumeChannels);
    EXPECT_EQ(DataSourceDllOpen(const_cast<char*>("/no/such/file.qdf")), -1);
    EXPECT_EQ(Channels(quillon), volumeChannels);
    int perLine = 0;
    EXPECT_EQ(DataSourceDllHandleGetForcesPerLine(quillon, &perLine), 1);
    EXPECT_EQ(perLine, static_cast<int>(QuillonBuilder::kForceCurves));
    EXPECT_EQ(DataSourceDllCloseHandle(quillon), 1);
}

TEST_F(HandleSurfaceTest, AHandleThatIsNotOpenAnswersAsNoFileDoes) {
    DataSourceDllHandle* closed = OpenFresh(PathOf("quillon_FORCE.qdf"));
    ASSERT_NE(closed, nullptr);
    ASSERT_EQ(DataSourceDllCloseHandle(closed), 1);
    DataSourceDllHandle* madeUp = reinterpret_cast<DataSourceDllHandle*>(static_cast<std::uintptr_t>(0x5EED5EEDu));

    // The current file is open, so that an answer from it would show.
    ASSERT_EQ(OpenFreshFlat(PathOf("quillon_FORCE.qdf")), 1);
    for (DataSourceDllHandle* handle : {closed, madeUp, static_cast<DataSourceDllHandle*>(nullptr)}) {
        EXPECT_EQ(Channels(handle), -5);
        EXPECT_EQ(TakeText(DataSourceDllHandleGetDataTypeDesc(handle, 0)), "UNKNOWN");
        EXPECT_EQ(TakeText(DataSourceDllHandleGetFileTypeText(handle)), "UNKNOWN");
        int points = 77;
        EXPECT_EQ(DataSourceDllHandleGetNumberOfPointsPerCurve(handle, 0, &points), -1);
        EXPECT_EQ(points, 0) << "the count is written before the file is looked at";
        double first[64], second[64];
        EXPECT_EQ(DataSourceDllHandleGetForceCurveMetricData(handle, 0, first, second), -1);
    }
    EXPECT_EQ(DataSourceDllCloseHandle(closed), -1) << "closed twice";
    EXPECT_EQ(DataSourceDllCloseHandle(madeUp), -1);
    EXPECT_EQ(DataSourceDllCloseHandle(nullptr), 1);

    // The numbers of closed handles are not given out again.
    DataSourceDllHandle* next = OpenFresh(PathOf("quillon_FORCE.qdf"));
    ASSERT_NE(next, nullptr);
    EXPECT_NE(next, closed);
    EXPECT_EQ(Channels(closed), -5);
    DataSourceDllCloseHandle(next);
}

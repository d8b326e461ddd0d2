// Handles read from several threads at once. Run under ThreadSanitizer
// (DS_TSAN) these tests are the proof that handles share nothing unguarded;
// in the other builds they still check that every answer stays what a
// thread alone gets.

#include "ThreadsTestSupport.h"

#include "Platform/DataCore/DataFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <barrier>
#include <functional>
#include <thread>
#include <vector>

using namespace ThreadsTest;

namespace {

constexpr int kRounds = 3;

// Runs each job on a thread of its own, all released at the same moment.
void RunTogether(const std::vector<std::function<void()>>& jobs) {
    std::barrier start(static_cast<std::ptrdiff_t>(jobs.size()));
    std::vector<std::thread> threads;
    for (const auto& job : jobs) {
        threads.emplace_back([&start, &job] {
            start.arrive_and_wait();
            job();
        });
    }
    for (auto& t : threads) {
        t.join();
    }
}

struct OpenHandle {
    DataSourceDllHandle* handle;
    CallRecord alone;  // what every reader answers with no other thread about
};

OpenHandle OpenAndReadAlone(const std::string& path) {
    OpenHandle h{OpenFresh(path), {}};
    h.alone = ReadEverything(h.handle, true);
    return h;
}

}  // namespace

TEST(ConcurrentHandlesTest, TwoFilesOfDifferentFamiliesReadFromTwoThreadsAtOnce) {
    const std::string tefPath = TestTempPath("threads_pair.tef");
    const std::string volumePath = TestTempPath("threads_pair_volume.qdf");
    const std::string harlenPath = TestTempPath("threads_pair_harlen.hdf");
    TefBuilder(3, 16, 12, 4).Save(tefPath);
    WriteCaptureVolume(volumePath, 16.5);
    HarlenBuilder::Force(64, 16).Write(harlenPath);

    std::vector<OpenHandle> handles = {OpenAndReadAlone(tefPath), OpenAndReadAlone(volumePath),
                                       OpenAndReadAlone(harlenPath)};
    for (const auto& h : handles) {
        ASSERT_NE(h.handle, nullptr);
        ASSERT_EQ(ReadEverything(h.handle, true), h.alone) << "a second read alone must repeat the first";
    }

    std::atomic<int> differences{0};
    std::vector<std::function<void()>> jobs;
    for (const auto& h : handles) {
        jobs.push_back([&h, &differences] {
            for (int round = 0; round < kRounds; ++round) {
                if (!(ReadEverything(h.handle, true) == h.alone)) {
                    ++differences;
                }
            }
        });
    }
    RunTogether(jobs);
    EXPECT_EQ(differences.load(), 0);
    for (const auto& h : handles) {
        EXPECT_EQ(DataSourceDllCloseHandle(h.handle), 1);
    }
}

TEST(ConcurrentHandlesTest, CaptureReadsOfTwoHandlesKeepTheirOwnSetUp) {
    // The capture phase and amplitude are process-wide; each read sets them
    // up for its own curve and must draw the curve from its own set-up.
    const std::string slowPath = TestTempPath("threads_capture_slow.qdf");
    const std::string fastPath = TestTempPath("threads_capture_fast.qdf");
    WriteCaptureVolume(slowPath, 16.5);
    WriteCaptureVolume(fastPath, 301.25);
    constexpr int kFirst = 40, kSecond = 24;

    struct Capture {
        DataSourceDllHandle* handle;
        std::vector<double> first = std::vector<double>(kFirst), second = std::vector<double>(kSecond);
    };
    auto read = [](Capture& c, std::vector<double>& first, std::vector<double>& second) {
        return DataSourceDllHandleGetCrestloadCaptureZData(c.handle, first.data(), second.data(), kFirst, kSecond);
    };
    Capture slow{DataSourceDllOpenHandle(slowPath.c_str())}, fast{DataSourceDllOpenHandle(fastPath.c_str())};
    ASSERT_NE(slow.handle, nullptr);
    ASSERT_NE(fast.handle, nullptr);
    ASSERT_EQ(read(slow, slow.first, slow.second), 1);
    ASSERT_EQ(read(fast, fast.first, fast.second), 1);
    ASSERT_NE(slow.first, fast.first) << "the two set-ups must draw different curves";

    std::atomic<int> differences{0};
    auto job = [&](Capture& c) {
        return [&c, &differences, &read] {
            std::vector<double> first(kFirst), second(kSecond);
            for (int i = 0; i < 200; ++i) {
                if (read(c, first, second) != 1 || first != c.first || second != c.second) {
                    ++differences;
                }
            }
        };
    };
    RunTogether({job(slow), job(fast)});
    EXPECT_EQ(differences.load(), 0);
    DataSourceDllCloseHandle(slow.handle);
    DataSourceDllCloseHandle(fast.handle);
}

TEST(ConcurrentHandlesTest, HarlenSourcesOpenedInTwoThreadsAtOnceLetExactlyOneTakeTheFirstDeflectionRow) {
    // Force rows make the source that reads the process's first deflection
    // row "Force"; every later one keeps the metric system of its file.
    const std::string path = TestTempPath("threads_harlen_first_row.hdf");
    HarlenBuilder::Force(32, 8)
        .Text("HarlenFileOverviewInfo", "ForceCurveDataLabels", "Trace Z,nm,Trace Defl,nN,Retrace Z,nm,Retrace Defl,nN")
        .Write(path);
    for (int round = 0; round < 10; ++round) {
        HarlenOLDataSource::ResetFirstDeflectionRowForTesting();
        std::shared_ptr<HarlenOLDataSource> opened[2];
        auto open = [&path](std::shared_ptr<HarlenOLDataSource>& source) {
            return [&path, &source] {
                source = std::make_shared<HarlenOLDataSource>(Orx::DataCore::DataFile::Open(path, 1, 0, "", nullptr),
                                                              nullptr);
                source->Initialize();
            };
        };
        RunTogether({open(opened[0]), open(opened[1])});
        ASSERT_TRUE(opened[0]->IsOpen() && opened[1]->IsOpen());
        std::vector<std::string> systems = {opened[0]->GetUnits(), opened[1]->GetUnits()};
        std::sort(systems.begin(), systems.end());
        EXPECT_EQ(systems, (std::vector<std::string>{"Force", "Metric"}));
    }
}

TEST(ConcurrentHandlesTest, OneHandleSharedByThreadsIsReadOneCallAfterTheOther) {
    // The capture repair writes into the source: calls on one handle must
    // not overlap, whoever makes them.
    const std::string path = TestTempPath("threads_shared_volume.qdf");
    WriteCaptureVolume(path, 16.5);
    const OpenHandle shared = OpenAndReadAlone(path);
    ASSERT_NE(shared.handle, nullptr);
    std::atomic<int> differences{0};
    auto job = [&] {
        for (int round = 0; round < kRounds; ++round) {
            if (!(ReadEverything(shared.handle, true) == shared.alone)) {
                ++differences;
            }
        }
    };
    RunTogether({job, job});
    EXPECT_EQ(differences.load(), 0);
    DataSourceDllCloseHandle(shared.handle);
}

TEST(ConcurrentHandlesTest, AHandleClosedWhileAnotherThreadReadsItEndsThatReaderCleanly) {
    const std::string path = TestTempPath("threads_closed_under_reader.tef");
    TefBuilder(2, 32, 32, 2).Save(path);
    for (int round = 0; round < 20; ++round) {
        DataSourceDllHandle* handle = DataSourceDllOpenHandle(path.c_str());
        ASSERT_NE(handle, nullptr);
        std::vector<double> expected(32 * 32);
        int count = 0;
        ASSERT_EQ(DataSourceDllHandleGetImageMetricData(handle, 1, expected.data(), 32 * 32, &count), 1);

        std::atomic<int> wrong{0};
        std::atomic<int> closes{0};
        RunTogether({[&] {
                         std::vector<double> out(32 * 32);
                         int n = 0;
                         // Every read either sees the whole file or no file at all.
                         while (DataSourceDllHandleGetImageMetricData(handle, 1, out.data(), 32 * 32, &n) == 1) {
                             if (out != expected) {
                                 ++wrong;
                             }
                         }
                     },
                     [&] {
                         std::this_thread::yield();
                         closes += DataSourceDllCloseHandle(handle);
                     }});
        EXPECT_EQ(wrong.load(), 0);
        EXPECT_EQ(closes.load(), 1);
    }
}

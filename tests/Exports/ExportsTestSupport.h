#pragma once

// The exports over an in-memory source made current for the length of a test.

#include "support/MemoryDataSource.h"

#include "DataSourceDll/DataSourceDll.h"
#include "DataSourceDll/DataSourceDllState.h"
#include "QlDataAnalysisExt/ColorTables/ICreateColorTableCallback.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

class ExportsTest : public ::testing::Test {
protected:
    std::shared_ptr<MemoryDataSource> source = std::make_shared<MemoryDataSource>();

    // Makes the source current, with the kind of file it answers to.
    MemoryDataSource& Current(const std::string& kind) {
        source->kind = kind;
        DataSourceDllState::Install(source);
        return *source;
    }
    void TearDown() override { DataSourceDllState::Release(); }
};

// The text of a result, which is then released as its caller must.
inline std::string Taken(char* text) {
    std::string out = text ? text : "(null)";
    DataSourceDllFreeString(text);
    return out;
}

// A load record with the scales of a channel.
inline OLDataItemLoadRecord Scaled(float soft, float hard, float scaling = 1.0f, double spring = 0.0) {
    OLDataItemLoadRecord record;
    record.softScale = soft;
    record.hardScale = hard;
    record.range = scaling;
    record.springConstant = spring;
    return record;
}

// An export of one channel and one output, with the value it must write.
template <class T>
struct ChannelAnswer {
    const char* name;
    int (*call)(int channel, T* out);
    int channel;
    T expected;
};

template <class T>
void ExpectAnswers(const std::vector<ChannelAnswer<T>>& answers) {
    for (const auto& a : answers) {
        T out{};
        EXPECT_EQ(a.call(a.channel, &out), 1) << a.name;
        EXPECT_EQ(out, a.expected) << a.name;
    }
}

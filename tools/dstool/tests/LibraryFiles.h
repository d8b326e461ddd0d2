#pragma once

// Files of the sample kit's builders written where the tests keep their
// files, to be opened through the library as dstool opens them.

#include "tools/samplekit/QuillonBuilder.h"

#include "support/TestTempPath.h"

#include <string>

inline std::string WrittenQuillon(SampleKit::QuillonBuilder&& file, const std::string& name)
{
    const std::string path = TestTempPath("dstool_" + name);
    file.Write(path);
    return path;
}

inline std::string WrittenQuillon(const std::string& subtype)
{
    return WrittenQuillon(SampleKit::QuillonBuilder(subtype), subtype + ".qdf");
}

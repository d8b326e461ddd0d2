#include "tools/dstool/TefOutput.h"

#include "DataSourceDll/DataSourceDll.h"
#include "tools/dstool/Command.h"

#include <cstdio>

namespace Dstool {

int OpenTefFile(LibrarySession& session, const std::string& command, const std::string& path)
{
    if (!session.Open(path))
        return session.ReportOpenFailure(path);
    const std::string type = LibrarySession::TakeText(DataSourceDllGetFileTypeText());
    if (type != ".tef") {
        std::fprintf(stderr, "dstool %s: %s is no .tef file (its type: %s); only those are written again\n",
                     command.c_str(), path.c_str(), type.c_str());
        return kExitFailed;
    }
    return kExitDone;
}

}  // namespace Dstool

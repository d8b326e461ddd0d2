#include "tools/dstool/ProgressLine.h"

#include <cstdio>
#include <unistd.h>

namespace Dstool {

ProgressLine::ProgressLine() : terminal_(isatty(fileno(stdout)) == 1) {}

void ProgressLine::Show(std::size_t done, std::size_t total, const std::string& name)
{
    if (!terminal_)
        return;
    const int width = static_cast<int>(std::to_string(total).size());
    // \r goes back to the start of the line, ESC [K clears what stood there.
    std::printf("\r\033[K[%*zu/%zu] %s", width, done, total, name.c_str());
    std::fflush(stdout);
    shown_ = true;
}

void ProgressLine::Clear()
{
    if (!shown_)
        return;
    std::printf("\r\033[K");
    std::fflush(stdout);
    shown_ = false;
}

}  // namespace Dstool

#include "tools/dstool/ProgressLine.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace Dstool {

ProgressLine::ProgressLine() : terminal_(isatty(fileno(stdout)) == 1) {}

void ProgressLine::Show(std::size_t done, std::size_t total, const std::string& name)
{
    if (!terminal_)
        return;
    const std::string count = std::to_string(total);
    std::string head = std::to_string(done);
    head.insert(0, count.size() - std::min(count.size(), head.size()), ' ');
    line_ = "[" + head + "/" + count + "] " + name;
    Redraw();
}

void ProgressLine::Redraw()
{
    if (!terminal_ || line_.empty())
        return;
    // \r goes back to the start of the line, ESC [K clears what stood there.
    std::printf("\r\033[K%s", line_.c_str());
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

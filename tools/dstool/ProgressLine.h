#pragma once

#include <string>

namespace Dstool {

// One line on a terminal that tells how far a batch has come, rewritten in
// place. When standard output is not a terminal (a pipe, a file, a test)
// nothing is shown at all, so that the output holds only the results.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine() { Clear(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    // "[ 3/12] name" in place of the line before.
    void Show(std::size_t done, std::size_t total, const std::string& name);
    // Takes the line away, before other output is written.
    void Clear();
    // Shows the last line again, after other output.
    void Redraw();

private:
    bool terminal_;
    bool shown_ = false;
    std::string line_;
};

}  // namespace Dstool

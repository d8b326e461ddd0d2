#pragma once

// Folder permissions bind a test run by root only while it acts as another
// user; this takes an unprivileged effective user for its lifetime. A test
// run by an ordinary user is bound by them already and keeps its user.

#include <unistd.h>

#include <cstdlib>

namespace TestSupport {

class UnprivilegedScope {
public:
    UnprivilegedScope() : wasRoot_(::geteuid() == 0) {
        if (wasRoot_ && ::seteuid(kNobody) != 0) {
            wasRoot_ = false;
        }
    }
    ~UnprivilegedScope() {
        // A test that went on as the wrong user would judge nothing it meant to.
        if (wasRoot_ && ::seteuid(0) != 0) {
            std::abort();
        }
    }
    UnprivilegedScope(const UnprivilegedScope&) = delete;
    UnprivilegedScope& operator=(const UnprivilegedScope&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    bool wasRoot_;
};

}  // namespace TestSupport

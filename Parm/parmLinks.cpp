// Values read through the link table, by the kind of the value.

#include "Parm/parm.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace {

template <class Real>
int Truncated(const Real* value) {
    if (value == nullptr) {
        return 0;
    }
    const double x = static_cast<double>(*value);
    // A number an int cannot hold truncates to nothing rather than to chance.
    if (!std::isfinite(x) || x <= static_cast<double>(INT_MIN) - 1.0 || x >= static_cast<double>(INT_MAX) + 1.0) {
        return 0;
    }
    return static_cast<int>(x);
}

int DecimalOf(const char* text) {
    if (text == nullptr) {
        return 0;
    }
    errno = 0;
    const long number = std::strtol(text, nullptr, 10);
    if (errno == ERANGE || number < INT_MIN || number > INT_MAX) {
        return 0;
    }
    return static_cast<int>(number);
}

}  // namespace

int parm::ReadLinkedInteger(int kind) const {
    switch (kind) {
        case 1:
            return shortLink != nullptr ? *shortLink : 0;
        case 2:
        case 6:
            return Truncated(floatLink);
        case 3:
        case 7:
            return boolLink != nullptr ? *boolLink : 0;
        case 4:
        case 5:
            return DecimalOf(textLink);
        case 8:
            return intLink != nullptr ? *intLink : 0;
        case 9:
            return Truncated(doubleLink);
        default:
            return 0;
    }
}

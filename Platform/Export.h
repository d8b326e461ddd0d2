#pragma once

// The shared library is built with hidden visibility; only what carries this
// mark is seen by a host.
#if defined(__GNUC__)
#define DS_EXPORT __attribute__((visibility("default")))
#else
#define DS_EXPORT
#endif

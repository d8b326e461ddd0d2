#pragma once

// CPU time of the calling thread, for cases that time only a part of each
// iteration: time spent waiting for a shared core is not counted.
class ThreadCpuClock {
public:
    static double Seconds();
};

// Functions that the benchmarks share.
#pragma once

#include <windows.h>

#include <algorithm>
#include <thread>
#include <vector>

using Times = std::vector<double>;

// The time since an arbitrary start.
inline double Milliseconds()
{
    LARGE_INTEGER now = {};
    LARGE_INTEGER frequency = {};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

inline double Median(Times times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// Keeps a processor busy while the result exists. An idle virtual processor takes longer to wake than many of
// the measured operations take, and each message to Wine's server would wait for that.
inline std::jthread KeepAwake()
{
    return std::jthread([](const std::stop_token& stop) {
        while (!stop.stop_requested())
        {
        }
    });
}

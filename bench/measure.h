// What the benchmarks share.
#pragma once

#include <windows.h>

#include <algorithm>
#include <thread>
#include <vector>

using Times = std::vector<double>;

// Since some start.
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

// Keeps a processor awake while the result lives: on a virtual machine the waking of one that idles takes
// longer than much of what is measured, and every message between the programs and Wine's server waits for
// it.
inline std::jthread KeepAwake()
{
    return std::jthread([](const std::stop_token& stop) {
        while (!stop.stop_requested())
        {
        }
    });
}

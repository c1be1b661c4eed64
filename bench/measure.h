// Functions that the benchmarks share.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

using Times = std::vector<double>;

// The time since an arbitrary start.
inline double Milliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

inline double Median(Times times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

#pragma once

#include <algorithm>

/// The whole numbers that a setting can have.
struct NumberRange {
    /// The largest count, size or first index that the program works with. What is larger is a slip.
    static constexpr int largest = 1000000;

    int least = -largest;
    int most = largest;

    constexpr int clamp(int number) const { return std::clamp(number, least, most); }
};

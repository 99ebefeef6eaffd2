#pragma once

#include <algorithm>

/// The lines that a fit looks at: the first hundred one by one, and of those behind them as many as the precision says,
/// evenly spread. For use in a range-based `for`.
class SampledLines {
public:
    class Iterator {
    public:
        Iterator(int line, int step) : line(line), step(step) {}
        int operator*() const { return line; }
        Iterator& operator++() {
            line += line < readInFull ? 1 : step;
            return *this;
        }
        /// Compares with the end, which a step may pass.
        bool operator!=(Iterator const& end) const { return line < end.line; }

    private:
        static constexpr int readInFull = 100;
        int line;
        int step;
    };

    /// Lines `first` to `count - 1`. The precision must not be 0.
    SampledLines(int first, int count, int precision)
        : first(first), count(count), step(std::max(count / precision, 1)) {}

    Iterator begin() const { return {first, step}; }
    Iterator end() const { return {count, step}; }

private:
    int first;
    int count;
    int step;
};

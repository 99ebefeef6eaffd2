#pragma once

#include <QString>

#include <functional>
#include <vector>

/// The longest texts among those that a column shows, by which its width is judged.
class ColumnSample {
public:
    static constexpr std::size_t most = 5;

    /// The texts are all longer than `maximumWidth` pixels allow if one of them is. A maximum below 0 stands for none.
    ColumnSample(int averageCharWidth, int maximumWidth)
        : averageCharWidth(averageCharWidth), maximumWidth(maximumWidth) {}

    /// False if the text alone takes the greatest width, so that no more need be seen.
    bool add(QString const& text);
    /// No text, or only empty ones, have been seen.
    bool isEmpty() const { return longest.empty(); }
    /// At most five, the longest first.
    std::vector<QString> const& texts() const { return longest; }

private:
    int averageCharWidth;
    int maximumWidth;
    std::vector<QString> longest;
};

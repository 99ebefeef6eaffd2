#pragma once

#include <QString>

/// A whole number as an answer of the user, within bounds.
struct NumberAnswer {
    /// The largest number that the program takes for a count, a size or a first index. What is larger is a slip.
    static constexpr int largest = 1000000;
    /// The least first index.
    static constexpr int unbounded = -largest;

    /// Why `text` is no number from `least` to `most`, in words for the user; empty if it is one.
    static QString complaint(QString const& text, int least, int most = largest);
    /// The number of an answer that gives no complaint.
    static int parse(QString const& text) { return text.trimmed().toInt(); }
};

#pragma once

#include "commands/NumberRange.h"

#include <QString>

/// A whole number as an answer of the user, within bounds.
struct NumberAnswer {
    static constexpr int largest = NumberRange::largest;
    /// The least first index.
    static constexpr int unbounded = -largest;

    /// Why `text` is no number from `least` to `most`, in words for the user; empty if it is one.
    static QString complaint(QString const& text, int least, int most = largest);
    /// The number of an answer that gives no complaint.
    static int parse(QString const& text) { return text.trimmed().toInt(); }
};

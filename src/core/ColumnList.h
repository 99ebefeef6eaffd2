#pragma once

#include <QString>

#include <vector>

// Several columns as the user names them in one line: in the numbers, or the letters, that the headers show, with
// commas, semicolons or blanks between them, and "2-5" or "b-e" for all from one to another.

namespace Utilities {

/// Reads a list of numbers, each column once and in the order of the text; empty if any part of it names no column.
std::vector<int> parseColsString(QString const& text);

/// The same where columns are letters; column "A" is 0.
std::vector<int> parseColsStringColLetters(QString const& text);

/// The list in short, such as "1, 3-5".
QString makeColsStringFromCols(std::vector<int> const& cols, bool columnsAsLetters);

/// What a list names, for the user who is typing it.
QString computeColRangeFeedbackString(std::vector<int> const& cols, bool columnsAsLetters);

} // namespace Utilities

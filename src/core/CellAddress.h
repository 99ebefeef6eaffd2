#pragma once

#include <QString>

#include <climits>

// Cells, rows and columns as the user names them: in the numbers, or the letters, that the headers show. A function
// that reads an address takes it trimmed and sets what the address leaves out to `noLine`.

namespace Utilities {

/// Stands for a row or a column that an address does not name.
constexpr int noLine = INT_MIN;

/// Reads an address such as "25", "r25, c8" or, with columns as letters, "ab25". A number alone is a row, or with
/// `loneNumberIsColumn` a column. False if the text names neither row nor column.
bool parseCellLocationString(int& row, int& col, QString const& text, bool columnsAsLetters, bool loneNumberIsColumn);

/// The same where columns are letters; column "A" is 0.
bool parseCellLocationStringColLetters(int& row, int& col, QString const& text);

/// What an address names, for the user who is typing it.
QString computeCellRangeFeedbackString(int row, int col, bool columnsAsLetters);

/// Examples of addresses, as rich text.
QString getCellInputInstructions(bool columnsAsLetters);

} // namespace Utilities

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The vocabulary of delimiters. An "actual" delimiter is the characters between two cells, empty for none; the
// readable forms are what users and preference files write ("tab", "(none)").

namespace Utilities {

/// Whether the text can be a delimiter: anything that is not empty, where text of several characters is trimmed first.
/// A lone blank is valid.
bool delimiterValid(QString text);

/// Reads a readable delimiter, in any case of letters, into `actual`; text without a special meaning stands for
/// itself. "(auto)" leaves `actual` as it was.
void convertDelimiterFromShortReadableToActual(QString& actual, QString const& readable);

/// The form for preference files and entry fields: "tab", "space", "Unit Separator", "(none)" or the delimiter itself.
QString convertDelimiterFromActualToShortReadable(QString const& actual);

/// The form for labels: as the short one, and punctuation with its name, such as "comma (,)".
QString convertDelimiterFromActualToLongReadable(QString const& actual);

/// The name of punctuation, such as "comma"; empty for other text.
QString getDelimiterName(QString const& delimiter);

/// The short readable delimiters to choose from; `withAuto` puts "(auto)" first.
QStringList getDelimiterOptions(bool withAuto);

/// The usual delimiter of a file extension, which is lower case without a dot; "," if it has none.
QString getDefaultDelimiterFromExtension(QString const& extension);

/// The usual extension, without a dot, of files with this delimiter; "txt" if there is none.
QString getDefaultExtensionFromDelimiter(QString const& delimiter);

/// The most frequent of comma, tab, pipe, semi-colon, caret and Unit Separator in the file's first 10000 bytes, the
/// earlier in this order on a tie. Quotes do not matter. "," without a hit or for a file that cannot be opened.
QString getDelimiterFromAutoDetect(QString const& path);

/// The delimiter that divides most lines of the text evenly, out of tab, comma, semi-colon and pipe, the earlier in
/// this order on a tie. It must agree in at least half of the lines, else the answer is tab.
QString detectDelimiterInByteArray(QByteArray const& text);

} // namespace Utilities

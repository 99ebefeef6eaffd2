#pragma once

#include "core/Enumerations.h"

#include <QString>

#include <string_view>

/// How many lines end in which way.
struct LineEndings {
    int windows = 0;          ///< CR LF
    int lineFeed = 0;         ///< LF
    int carriageReturn = 0;   ///< CR alone, which can be read and not be written
    int recordSeparators = 0; ///< of encodings whose code units are bytes

    bool any() const { return windows + lineFeed + carriageReturn + recordSeparators > 0; }
    /// Whether no line ends in another way than `type`; also where no line ends.
    bool areAll(LineEndingType type) const;
    /// The most frequent one that can be written; Invalid if there is none.
    LineEndingType prevailing() const;
    /// The names, with blanks and "and" between, such as "CRLF and LF".
    QString names() const;

    /// All lines alike.
    static LineEndings of(LineEndingType type);
    /// Of a piece of a file, which begins with a whole code unit. Line breaks within quotes do not count, unless the
    /// standard knows no quotes; quotes are those at the start of a cell. With `isEnd` the file ends with it.
    static LineEndings in(std::string_view bytes, EncodingType encoding, ParsingStandard standard,
                          QString const& delimiter, bool isEnd);
    /// Of the first 8 MiB of a file, which take some milliseconds; none if it cannot be read.
    static LineEndings ofFile(QString const& path, EncodingType encoding, ParsingStandard standard,
                              QString const& delimiter);
};

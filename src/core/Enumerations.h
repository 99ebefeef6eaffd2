#pragma once

// The enumerations that every floor speaks. Their numeric values are stored in files and records: never renumber.

/// The character encoding of a file. "Utf16" and "Utf32" are of unknown byte order, as a user names them; the
/// "Guessed" forms are what the guess on opening turns them into: a known order under the plain display name.
enum class EncodingType {
    Utf8 = 0,
    Utf16 = 1,
    Utf16BE = 2,
    Utf16LE = 3,
    Utf16GuessedBE = 4,
    Utf16GuessedLE = 5,
    Utf32 = 6,
    Utf32LE = 7,
    Utf32BE = 8,
    Utf32GuessedBE = 9,
    Utf32GuessedLE = 10,
    Iso8859_1 = 11,
    Iso8859_2 = 12,
    Iso8859_3 = 13,
    Iso8859_4 = 14,
    Iso8859_5 = 15,
    Iso8859_6 = 16,
    Iso8859_7 = 17,
    Iso8859_8 = 18,
    Iso8859_9 = 19,
    Iso8859_10 = 20,
    Iso8859_13 = 21,
    Iso8859_14 = 22,
    Iso8859_15 = 23,
    Iso8859_16 = 24,
    Windows1250 = 25,
    Windows1251 = 26,
    Windows1252 = 27,
    Windows1253 = 28,
    Windows1254 = 29,
    Windows1255 = 30,
    Windows1256 = 31,
    Windows1257 = 32,
    Windows1258 = 33,
    Windows949 = 34,
    EucKr = 35,
    EucJp = 36,
    Iso2022Jp = 37,
    ShiftJis = 38,
    Big5Hkscs = 39,
    Big5 = 40,
    Gb18030 = 41,
    Koi8U = 42,
    Koi8R = 43,
    Invalid = 44,
};

/// The rules of quoting by which a file is read and written.
enum class ParsingStandard {
    Rfc4180 = 0,
    DelimiterOnly = 1,
    AllQuotes = 2,
    SparseQuotes = 3,
    AsciiSeparated = 4,
    Invalid = 5,
};

/// How rows end in a written file. The two legacy values behave as Unix everywhere and are never produced.
enum class LineEndingType {
    Windows = 0,
    Unix = 1,
    LegacyUnix2 = 2,
    LegacyUnix3 = 3,
    RecordSeparator = 4,
    Invalid = 5,
};

/// The order of the bytes of one code unit.
enum class Endianness { Little = 0, Big = 1, NotApplicable = 2 };

/// What a mask of rows or columns (sorted indexes) means in a read.
enum class GetRowColMaskType {
    Include = 0,   ///< exactly the listed indexes
    Exclude = 1,   ///< everything except the listed indexes
    NoMask = 2,    ///< everything; the mask is ignored
    Concealed = 3, ///< only for TableData, which turns it into Exclude with its own concealed list
};

enum class Direction { Up = 0, Down = 1, Left = 2, Right = 3 };

enum class Axis { Rows = 0, Columns = 1, Both = 2, Undecided = 3 };

/// The direction of a sort; None marks a table that is not sorted.
enum class SortType { Ascending = 0, Descending = 1, None = 2 };

#pragma once

#include "core/Enumerations.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string_view>
#include <vector>

// The vocabulary of the 44 encodings. For EncodingType::Invalid all names and marks are empty, the width is 1.

namespace Utilities {

/// Bytes of one code unit as the scanners see it: 2 and 4 for UTF-16 and UTF-32, 1 for everything else, also for
/// legacy sets of several bytes a character.
int numBytesPerChar(EncodingType encoding);

/// The byte order of a code unit; NotApplicable also for UTF-16 and UTF-32 of unknown order.
Endianness getEndianness(EncodingType encoding);

/// The byte order mark of an encoding, empty if it has none or its byte order is unknown.
std::vector<char> getEncodingBom(EncodingType encoding);

/// The name shown to the user.
QString convertEncodingTypeToString(EncodingType encoding);

/// The name by which QTextCodec knows the encoding.
QByteArray convertEncodingTypeToCodecName(EncodingType encoding);

/// Reads free text such as "utf 8", "ISO_8859-15" or a display name; Invalid if no known name occurs in it.
EncodingType convertEncodingStringToType(QString const& text);

bool encodingValid(QString const& text);

/// The display names to choose from, Unicode first.
QStringList getEncodingStringList();

/// Turns UTF-16 or UTF-32 of unknown byte order into the guessed form of the order in which the zero bytes of the
/// file's first 1000 bytes lie, little-endian in doubt. Any other encoding, and that of a file that cannot be opened,
/// comes back as given.
EncodingType guessEncodingFromFile(EncodingType encoding, QString const& path);

/// The encoding whose mark of two or four bytes a file begins with: one of UTF-16 or UTF-32. Invalid if there is no
/// such mark, or the file cannot be opened.
EncodingType getEncodingFromMark(QString const& path);
EncodingType getEncodingOfMark(std::string_view startOfFile);
/// Whether a mark of `marked` says that a file is in another encoding than `encoding`, which its name promises.
bool contradictsMark(EncodingType encoding, EncodingType marked);

} // namespace Utilities

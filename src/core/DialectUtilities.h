#pragma once

#include "core/Enumerations.h"

#include <QString>

// The vocabulary of parsing standards and line endings. The conversions from text accept free text in which a known
// name occurs, in any case and with or without blanks, "-" and "_".

namespace Utilities {

/// The name of a parsing standard; "Invalid standard" for anything unknown.
QString convertParsingStandardToString(ParsingStandard standard);
/// Invalid if no known name occurs in the text.
ParsingStandard convertParsingStringToStandard(QString const& text);
bool parsingStandardValid(QString const& text);

/// The name of a line ending as in preference files, empty for the invalid one; with `technical` its characters,
/// "CRLF" or "LF", where everything but Windows is "LF".
QString convertLineEndingTypeToShortString(LineEndingType type, bool technical = false);
/// The name of a line ending for dialogs, with its characters; empty for the invalid one.
QString convertLineEndingTypeToLongString(LineEndingType type);
/// Invalid if no known name occurs in the text.
LineEndingType convertLineEndingStringToType(QString const& text);
bool lineEndingValid(QString const& text);

/// The line ending of the platform that the program runs on.
LineEndingType getLineEndingFromPlatform();

} // namespace Utilities

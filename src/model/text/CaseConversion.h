#pragma once

#include <QString>
#include <QStringList>

namespace Utilities {

/// The words of a text: runs of letters and digits, divided where a capital follows a small letter ("twoWords") and
/// before the last capital of several that a small letter follows ("HTMLPage"). An apostrophe inside a word is left
/// out.
QStringList separateWords(QString const& text);

/// Each word begins with a capital and goes on in small letters, but for articles, conjunctions and short prepositions
/// behind the first word. What stands between the words stays.
QString convertToTitleCase(QString const& text);

QString convertToUpperCamelCase(QString const& text);
QString convertToLowerCamelCase(QString const& text);
QString convertToUpperSnakeCase(QString const& text);
QString convertToLowerSnakeCase(QString const& text);

/// The first character of each word as a capital. A word that begins with a parenthesis is left out.
QString convertToAcronym(QString const& text);

} // namespace Utilities

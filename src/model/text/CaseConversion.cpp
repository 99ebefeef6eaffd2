#include "model/text/CaseConversion.h"

#include <QSet>

namespace {

bool isApostrophe(QChar character) {
    return character == QLatin1Char('\'') || character == QChar(0x2019);
}

/// Part of a word in every case: letters, digits, marks on them and the halves of characters beyond 16 bits.
bool isWordCharacter(QChar character) {
    return character.isLetterOrNumber() || character.isMark() || character.isSurrogate();
}

bool isWordBreak(QChar character) {
    return character.isSpace() || character.category() == QChar::Punctuation_Connector ||
           character == QLatin1Char('-') || character == QLatin1Char('/') || character == QLatin1Char(',');
}

/// The number of code units of the character at `at`.
int unitsAt(QString const& text, qsizetype at) {
    return text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
}

QString capitalized(QString const& word) {
    if (word.isEmpty())
        return word;
    int const units = unitsAt(word, 0);
    return word.left(units).toUpper() + word.mid(units).toLower();
}

QString camelCase(QString const& text, bool firstInLowerCase) {
    QString result;
    for (QString const& word : Utilities::separateWords(text))
        result += result.isEmpty() && firstInLowerCase ? word.toLower() : capitalized(word);
    return result;
}

QString snakeCase(QString const& text) {
    return Utilities::separateWords(text).join(QLatin1Char('_'));
}

} // namespace

namespace Utilities {

QStringList separateWords(QString const& text) {
    QStringList words;
    QString word;
    auto const endWord = [&] {
        if (!word.isEmpty())
            words << word;
        word.clear();
    };
    for (qsizetype at = 0; at < text.size(); ++at) {
        QChar const character = text.at(at);
        if (isApostrophe(character) && !word.isEmpty())
            continue;
        if (!isWordCharacter(character)) {
            endWord();
            continue;
        }
        bool const capital = character.isUpper();
        bool const behindSmall = !word.isEmpty() && word.back().isLower();
        bool const lastOfCapitals =
            !word.isEmpty() && word.back().isUpper() && at + 1 < text.size() && text.at(at + 1).isLower();
        if (capital && (behindSmall || lastOfCapitals))
            endWord();
        word += character;
    }
    endWord();
    return words;
}

QString convertToTitleCase(QString const& text) {
    static QSet<QString> const smallWords{"a",  "an",  "and", "as", "at", "but", "by",  "from",
                                          "in", "nor", "not", "of", "on", "or",  "the", "to"};
    QString result = text.toLower();
    bool first = true;
    qsizetype start = 0;
    while (start < result.size()) {
        if (isWordBreak(result.at(start))) {
            ++start;
            continue;
        }
        qsizetype end = start;
        while (end < result.size() && !isWordBreak(result.at(end)))
            ++end;
        if (first || !smallWords.contains(result.mid(start, end - start))) {
            qsizetype letter = start;
            while (letter < end && !isWordCharacter(result.at(letter)))
                ++letter;
            if (letter < end) {
                int const units = unitsAt(result, letter);
                QString const capital = result.mid(letter, units).toUpper();
                result.replace(letter, units, capital);
                end += capital.size() - units;
            }
        }
        first = false;
        start = end;
    }
    return result;
}

QString convertToUpperCamelCase(QString const& text) {
    return camelCase(text, false);
}

QString convertToLowerCamelCase(QString const& text) {
    return camelCase(text, true);
}

QString convertToUpperSnakeCase(QString const& text) {
    return snakeCase(text).toUpper();
}

QString convertToLowerSnakeCase(QString const& text) {
    return snakeCase(text).toLower();
}

QString convertToAcronym(QString const& text) {
    QString result;
    bool inWord = false;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (isWordBreak(text.at(at))) {
            inWord = false;
        } else if (!inWord) {
            inWord = true;
            if (text.at(at) != QLatin1Char('('))
                result += text.mid(at, unitsAt(text, at)).toUpper();
        }
    }
    return result;
}

} // namespace Utilities

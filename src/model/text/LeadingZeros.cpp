#include "model/text/LeadingZeros.h"

#include <QRegularExpression>

namespace {

/// Whether a zero stands before a digit and not behind one; without it there is nothing to remove, and most cells of a
/// column of numbers are done with so far more quickly than by a regular expression.
bool mayHaveLeadingZero(QString const& text) {
    auto const isDigit = [&](qsizetype at) {
        return text.at(at) >= QLatin1Char('0') && text.at(at) <= QLatin1Char('9');
    };
    for (qsizetype at = 0; at + 1 < text.size(); ++at) {
        if (text.at(at) == QLatin1Char('0') && isDigit(at + 1) && (at == 0 || !isDigit(at - 1)))
            return true;
    }
    return false;
}

} // namespace

QString Utilities::removeLeadingZeros(QString const& text) {
    if (!mayHaveLeadingZero(text))
        return text;
    static QRegularExpression const firstNumber(QStringLiteral("^(\\D*)0+(\\d+.*)$"));
    // The zeros of 100.5 do not lead.
    static QRegularExpression const decimals(QStringLiteral("(?<!\\d)(-?)0+(\\d\\.\\d+)"));
    QString result = text;
    result.replace(firstNumber, QStringLiteral("\\1\\2"));
    result.replace(decimals, QStringLiteral("\\1\\2"));
    return result;
}

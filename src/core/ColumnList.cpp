#include "core/ColumnList.h"

#include "core/IndexUtilities.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <climits>

namespace {

constexpr int mostColumns = 10000; // in one list; a slip such as "1-99999999" names none

QString nameOf(int col, bool columnsAsLetters) {
    return columnsAsLetters ? Utilities::convertNumberToLetters(col) : QString::number(col);
}

/// Reads one column; INT_MIN for anything else.
int columnOf(QString const& text, bool columnsAsLetters) {
    if (columnsAsLetters)
        return Utilities::convertLettersToNumber(text);
    bool isNumber = false;
    int const number = text.toInt(&isNumber);
    return isNumber ? number : INT_MIN;
}

std::vector<int> parseList(QString const& text, bool columnsAsLetters) {
    static QRegularExpression const blanksAroundDash(QStringLiteral("(?<=[\\da-z])\\s*-\\s*(?=[-\\da-z])"),
                                                     QRegularExpression::CaseInsensitiveOption);
    static QRegularExpression const separators(QStringLiteral("[,;\\s]+"));
    static QRegularExpression const fromTo(QStringLiteral("^(-?\\w+?)(?:-(-?\\w+))?$"));
    std::vector<int> cols;
    QString const joined = QString(text).replace(blanksAroundDash, QStringLiteral("-"));
    for (QString const& item : joined.split(separators, Qt::SkipEmptyParts)) {
        QRegularExpressionMatch const match = fromTo.match(item);
        int const first = columnOf(match.captured(1), columnsAsLetters);
        int const last = match.captured(2).isEmpty() ? first : columnOf(match.captured(2), columnsAsLetters);
        if (first == INT_MIN || last == INT_MIN || qint64(last) - first >= mostColumns)
            return {};
        for (int col = first; col <= last; ++col) {
            if (std::find(cols.begin(), cols.end(), col) == cols.end())
                cols.push_back(col);
        }
    }
    return cols;
}

} // namespace

std::vector<int> Utilities::parseColsString(QString const& text) {
    return parseList(text, false);
}

std::vector<int> Utilities::parseColsStringColLetters(QString const& text) {
    return parseList(text, true);
}

QString Utilities::makeColsStringFromCols(std::vector<int> const& cols, bool columnsAsLetters) {
    QStringList parts;
    for (std::size_t i = 0; i < cols.size(); ++i) {
        std::size_t const first = i;
        while (i + 1 < cols.size() && cols[i + 1] == cols[i] + 1)
            ++i;
        QString const name = nameOf(cols[first], columnsAsLetters);
        parts += i == first ? name : name + QLatin1Char('-') + nameOf(cols[i], columnsAsLetters);
    }
    return parts.join(QStringLiteral(", "));
}

QString Utilities::computeColRangeFeedbackString(std::vector<int> const& cols, bool columnsAsLetters) {
    if (cols.empty())
        return QStringLiteral("(No column selected)");
    QString const what = cols.size() == 1 ? QStringLiteral("Column %1") : QStringLiteral("Columns %1");
    return what.arg(makeColsStringFromCols(cols, columnsAsLetters));
}

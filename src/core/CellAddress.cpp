#include "core/CellAddress.h"

#include "core/IndexUtilities.h"

#include <QRegularExpression>

namespace {

constexpr auto Row = QLatin1String("ro?w?\\s*(?<row>-?\\d+)");
constexpr auto Column = QLatin1String("co?l?u?m?n?\\s*(?<col>-?\\d+)");

int numberOf(QString const& digits) {
    bool fits = false;
    int const number = digits.toInt(&fits);
    return fits ? number : Utilities::noLine;
}

/// Sets what the pattern finds by the names "row" and "col"; false if it does not occur.
bool find(QString const& pattern, QString const& text, int& row, int& col) {
    QRegularExpressionMatch const match =
        QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption).match(text);
    if (!match.hasMatch())
        return false;
    if (QString const digits = match.captured("row"); !digits.isEmpty())
        row = numberOf(digits);
    if (QString const digits = match.captured("col"); !digits.isEmpty())
        col = numberOf(digits);
    return true;
}

/// Reads the line that stands without its word beside one that has it.
void findOther(QString const& before, QString const& after, QString const& text, int& row, int& col) {
    if (!find(before, text, row, col))
        find(after, text, row, col);
}

void parseNumbers(int& row, int& col, QString const& text, bool loneNumberIsColumn) {
    bool const rowNamed = find(Row, text, row, col);
    bool const colNamed = find(Column, text, row, col);
    if (rowNamed && !colNamed) {
        findOther("(?<col>-?\\d+).*" + Row, Row + "\\s+(?<col>-?\\d+)", text, row, col);
    } else if (colNamed && !rowNamed) {
        findOther("(?<row>-?\\d+).*" + Column, Column + ".*\\D(?<row>-?\\d+)", text, row, col);
    } else if (!rowNamed) {
        findOther("(?<row>-?\\d+)\\s+(?<col>-?\\d+)", loneNumberIsColumn ? "^(?<col>-?\\d+)" : "^(?<row>-?\\d+)", text,
                  row, col);
    }
}

bool isNamed(int line) {
    return line != Utilities::noLine;
}

} // namespace

bool Utilities::parseCellLocationString(int& row, int& col, QString const& text, bool columnsAsLetters,
                                        bool loneNumberIsColumn) {
    if (columnsAsLetters)
        return parseCellLocationStringColLetters(row, col, text);
    row = col = noLine;
    parseNumbers(row, col, text, loneNumberIsColumn);
    return isNamed(row) || isNamed(col);
}

bool Utilities::parseCellLocationStringColLetters(int& row, int& col, QString const& text) {
    row = col = noLine;
    for (char const* const pattern : {"(?<col>[a-z]+)[^0-9a-z]*(?<row>\\d+)", "(?<row>\\d+)[^0-9a-z]*(?<col>[a-z]+)",
                                      "(?<col>[a-z]+)", "(?<row>\\d+)"}) {
        QRegularExpressionMatch const match = QRegularExpression(pattern).match(text.toLower());
        if (match.hasMatch()) {
            row = numberOf(match.captured("row"));
            col = convertLettersToNumber(match.captured("col"));
            break;
        }
    }
    return isNamed(row) || isNamed(col);
}

QString Utilities::computeCellRangeFeedbackString(int row, int col, bool columnsAsLetters) {
    if (!isNamed(row) && !isNamed(col))
        return "(No cell selected)";
    QString const column = columnsAsLetters ? convertNumberToLetters(col) : QString::number(col);
    if (!isNamed(row))
        return QString("Column %0").arg(column);
    if (!isNamed(col))
        return QString("Row %0").arg(row);
    return columnsAsLetters ? QString("Cell %0%1").arg(column).arg(row)
                            : QString("Row %0, Column %1").arg(row).arg(column);
}

QString Utilities::getCellInputInstructions(bool columnsAsLetters) {
    return columnsAsLetters ? "Examples:"
                              "<br><b>25</b> -> Row 25, Current Column"
                              "<br><b>A8</b> or <b>8a</b> -> Row 8, Column A"
                              "<br><b>25 AB</b> or <b>ab25</b> or <b>ab, 25</b> -> Row 25, Column AB"
                            : "Examples:"
                              "<br><b>25</b> or <b>r25</b> or <b>row25</b> -> Row 25, Current Column"
                              "<br><b>c8</b> or <b>col8</b> -> Column 8, Current Row"
                              "<br><b>25 8</b> or <b>r25, c8</b> or <b>c8 25</b> -> Row 25, Column 8";
}

#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QString>

#include <vector>

class QTableView;

/// Works out the heights in which rows show their texts wrapped. Made for one fit: it refers to the view and remembers
/// the widths of its columns.
class RowFit {
public:
    /// The columns from `firstCol` up to `colCount` count, the first hundred each and of the others as many as the
    /// precision says.
    RowFit(QTableView const& view, QFont const& font, int firstCol, int colCount, int precision, int maximumHeight);

    /// In pixels; 0 for a row without text in these columns. A height that reaches the maximum is the maximum.
    int heightOf(int row) const;

private:
    struct Column {
        int col;
        int textWidth;
    };

    int textHeight(QString const& text, int width) const;

    QTableView const& view;
    QFontMetrics metrics;
    int margin;
    int maximumHeight;
    int lineHeight;  ///< of a text of one line
    int widestAscii; ///< no ASCII character is wider
    std::vector<Column> columns;
};

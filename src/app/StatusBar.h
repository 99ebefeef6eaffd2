#pragma once

#include "core/RangeSize.h"

#include <QStatusBar>

#include <array>

class QLabel;

/// The window's status bar: the size and the dialect of the active table, each in a label of its own.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    enum class Label { TableSize, Selection, Stats, Delimiter, Encoding, LineEnding, Mode };

    explicit StatusBar(QWidget* parent = nullptr);

    void setText(Label label, QString const& text);
    QString text(Label label) const;

    /// "12 rows x 3 columns", with the visible counts behind in parentheses where they differ.
    static QString tableSizeText(int rows, int cols, int visibleRows, int visibleCols);
    /// What is selected: cells, whole rows and columns, or a rectangle by width and height.
    static QString selectionText(RangeSize const& size);
    /// The one delimiter of a table, or both where it is saved with another one.
    static QString delimiterText(QString const& delimiter, QString const& saveDelimiter);

private:
    std::array<QLabel*, 7> labels{};
};

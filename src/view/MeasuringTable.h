#pragma once

#include <QFont>
#include <QString>

#include <memory>
#include <vector>

class QTableWidget;

/// A table of one column that is never shown. It sizes texts as Qt sizes the cells of a table, margins and all.
class MeasuringTable {
public:
    explicit MeasuringTable(int rows);
    ~MeasuringTable();

    void setFont(QFont const& newFont);
    /// The width in pixels of a column that shows the texts in full. There must not be more texts than rows.
    int widthOf(std::vector<QString> const& texts);

private:
    void make();
    void applyFont();

    int rows;
    QFont font;
    std::unique_ptr<QTableWidget> table; ///< made when it is first needed, for it costs as much as a window's table
};

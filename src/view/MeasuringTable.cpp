#include "view/MeasuringTable.h"

#include <QHeaderView>
#include <QTableWidget>

MeasuringTable::MeasuringTable(int rows) : rows(rows) {}

MeasuringTable::~MeasuringTable() = default;

void MeasuringTable::make() {
    table = std::make_unique<QTableWidget>(rows, 1);
    // The labels of this table are not those of the table that is sized.
    table->horizontalHeader()->hide();
    for (int row = 0; row < rows; ++row)
        table->setItem(row, 0, new QTableWidgetItem());
    applyFont();
}

void MeasuringTable::setFont(QFont const& newFont) {
    bool const same = font == newFont;
    font = newFont;
    if (table && !same)
        applyFont();
}

void MeasuringTable::applyFont() {
    for (int row = 0; row < rows; ++row)
        table->item(row, 0)->setFont(font);
}

int MeasuringTable::widthOf(std::vector<QString> const& texts) {
    if (!table)
        make();
    for (int row = 0; row < rows; ++row)
        table->item(row, 0)->setText(std::size_t(row) < texts.size() ? texts[std::size_t(row)] : QString());
    table->resizeColumnToContents(0);
    return table->columnWidth(0);
}

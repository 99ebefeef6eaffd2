#pragma once

#include "appearance/Theme.h"
#include "core/CellRegion.h"
#include "core/Enumerations.h"

#include <QString>

#include <functional>

class QWidget;
class TableView;

/// A table whose cells go into another encoding.
struct EncodingChange {
    TableView* table;
    EncodingType encoding;
    bool visibleOnly = false; ///< leaves out what is concealed
    QString path;             ///< the file that the question is about; empty for none beside the table's own
};

namespace LossyCellsQuestion {

/// True if the encoding can carry all characters, or if the user wants the change anyway. Where the user wants to see
/// the cells they are selected, and `show` is called with the table. It may be gone on return.
bool mayChange(QWidget* parent, Theme const& theme, EncodingChange const& change,
               std::function<void(TableView*)> const& show);
/// Selects the cells, which are Raw, and calls `show` with the table; tells if all of them are hidden.
void showCells(QWidget* parent, Theme const& theme, TableView* table, CellRegion const& cells,
               std::function<void(TableView*)> const& show);

} // namespace LossyCellsQuestion

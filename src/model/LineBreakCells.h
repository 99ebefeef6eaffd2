#pragma once

#include <QString>

#include <functional>

class TableModel;

/// The cells of a table that hold line breaks, which a file without quotes cannot hold.
namespace LineBreakCells {

/// Gets the raw place, as the user sees the table, and the text of a cell.
using Visit = std::function<void(int row, int col, QString const& text)>;

/// Visits each cell with a CR or LF; with `visibleOnly` only those that the model shows.
void forEach(TableModel const& model, bool visibleOnly, Visit const& visit);
int count(TableModel const& model, bool visibleOnly);
/// Tells how many cells hold line breaks.
QString sentence(int count);

} // namespace LineBreakCells

#pragma once

#include "core/CellRegion.h"
#include "core/Enumerations.h"

#include <QString>

class TableModel;

/// The cells of a table that would lose characters in another encoding.
namespace LossyCells {

/// Their places, Raw as the user sees the table; with `visibleOnly` only those that the model shows.
CellRegion find(TableModel const& model, EncodingType encoding, bool visibleOnly);
/// Tells how many cells the encoding cannot carry.
QString sentence(qint64 count, EncodingType encoding);
/// Tells that so many cells have been given texts that the encoding cannot carry.
QString notice(qint64 count, EncodingType encoding);
/// Selects those of the cells, which are Raw, that are in sight. False if none is.
bool select(TableModel& model, CellRegion const& cells);

} // namespace LossyCells

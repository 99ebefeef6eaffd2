#pragma once

#include "app/launcher/PromptStep.h"
#include "core/Enumerations.h"

class TableView;

// The questions for a place in a table. While the user types, the place is highlighted and scrolled into sight. A table
// that is closed before the answer is left in peace.

namespace Prompts {

/// Selects a cell.
PromptStep goToCell(TableView* table);
/// Selects the rectangle between the main cell and a cell.
PromptStep selectFromMainCellTo(TableView* table);
/// Moves the texts of the selected cells so that the main cell's comes to a cell.
PromptStep moveCellContentsTo(TableView* table);
/// The same with copies of the texts.
PromptStep duplicateCellContentsTo(TableView* table);
/// Moves the selected rows or columns in front of another one.
PromptStep moveLinesBefore(Axis axis, TableView* table);

} // namespace Prompts

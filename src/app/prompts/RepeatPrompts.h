#pragma once

#include "app/launcher/PromptStep.h"
#include "core/Enumerations.h"

class TableView;

// The questions how often something is done to the selected rows or columns.

namespace Prompts {

/// Inserts that many empty lines in front of each selected one.
PromptStep insertLinesBefore(Axis axis, TableView* table);
/// Makes that many copies of the selected lines.
PromptStep duplicateLines(Axis axis, TableView* table);

} // namespace Prompts

#pragma once

#include "app/launcher/PromptStep.h"
#include "core/Enumerations.h"

class TableView;

namespace Prompts {

/// Sets the height of the selected rows or the width of the selected columns, in pixels.
PromptStep selectedLineSize(Axis axis, TableView* table);

} // namespace Prompts

#pragma once

#include <QString>

/// The name of the slot that carries out the command `name`, without parentheses: "command" and the name's words in
/// upper camel case, as in "commandCutCells" for "Cut Cell(s)". A few commands have handlers of other names.
QString commandHandlerName(QString const& name);

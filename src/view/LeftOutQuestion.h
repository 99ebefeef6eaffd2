#pragma once

#include "model/LeftOutCells.h"

#include <QString>

#include <optional>

class QWidget;
class TableModel;

/// Asks what is to become of cells that were taken out of the selection, before one text is written to all of it. None
/// if the user gives the change up; not asked where no such cell would change. The text of an edit to come is not known
/// yet, and an edit of any cell can change it.
std::optional<LeftOut> askAboutLeftOutCells(QWidget* parent, TableModel const& model,
                                            std::optional<QString> const& text);

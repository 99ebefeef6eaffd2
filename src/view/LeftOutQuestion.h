#pragma once

#include "model/LeftOutCells.h"

#include <QString>

#include <optional>

class QWidget;
class TableModel;

/// Whether `text`, written to all of `ranges` (Model), would change cells that were taken out of them.
bool wouldChangeLeftOutCells(TableModel const& model, RangeSet const& ranges, QString const& text);

/// Asks what is to become of cells that were taken out of `ranges`, before `text` is written to all of them.
/// None if the user gives the change up; not asked where no such cell would change.
std::optional<LeftOut> askAboutLeftOutCells(QWidget* parent, TableModel const& model, RangeSet const& ranges,
                                            QString const& text);

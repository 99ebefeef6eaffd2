#include "view/LeftOutQuestion.h"

#include "model/TableModel.h"
#include "view/MsgBox.h"
#include "view/TypingGuard.h"

#include <QPushButton>

namespace {

CellRegion leftOutCellsOf(TableModel const& model, RangeSet const& ranges) {
    return leftOutCells(ranges, {model.rowCount(), model.columnCount()});
}

} // namespace

bool wouldChangeLeftOutCells(TableModel const& model, RangeSet const& ranges, QString const& text) {
    CellRegion const cells = leftOutCellsOf(model, ranges);
    return !cells.isEmpty() && model.getTableData().wouldFillChange(cells, text);
}

std::optional<LeftOut> askAboutLeftOutCells(QWidget* parent, TableModel const& model, RangeSet const& ranges,
                                            QString const& text) {
    if (!wouldChangeLeftOutCells(model, ranges, text))
        return LeftOut::Change;
    std::int64_t const count = leftOutCellsOf(model, ranges).count();
    MsgBox box(parent);
    box.setTheme(model.getTheme());
    box.setText(count == 1
                    ? MsgBox::tr("1 cell that was taken out of the selection would be changed too.")
                    : MsgBox::tr("%1 cells that were taken out of the selection would be changed too.").arg(count));
    QPushButton* const leave = box.addButton(MsgBox::tr("&Leave Them Out"), QMessageBox::AcceptRole);
    QPushButton* const change = box.addButton(MsgBox::tr("Change &All"), QMessageBox::DestructiveRole);
    QPushButton* const cancel = box.addButton(MsgBox::tr("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(leave);
    box.setEscapeButton(cancel);
    box.conditionButtons();
    FromOutside const unexpected; // what brings it up is often the key before a text, or in a series of them
    box.exec();
    if (box.clickedButton() == leave)
        return LeftOut::Leave;
    return box.clickedButton() == change ? std::optional(LeftOut::Change) : std::nullopt;
}

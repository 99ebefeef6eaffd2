#include "view/LeftOutQuestion.h"

#include "model/TableModel.h"
#include "view/MsgBox.h"

#include <QPushButton>

std::optional<LeftOut> askAboutLeftOutCells(QWidget* parent, TableModel const& model,
                                            std::optional<QString> const& text) {
    CellRegion const cells = leftOutCells(model.getSelectedSet(), {model.rowCount(), model.columnCount()});
    if (cells.isEmpty() || (text && !model.getTableData().wouldFillChange(cells, *text)))
        return LeftOut::Change;
    MsgBox box(parent);
    box.setTheme(model.getTheme());
    box.setText(
        cells.count() == 1
            ? MsgBox::tr("1 cell that was taken out of the selection would be changed too.")
            : MsgBox::tr("%1 cells that were taken out of the selection would be changed too.").arg(cells.count()));
    QPushButton* const leave = box.addButton(MsgBox::tr("&Leave Them Out"), QMessageBox::AcceptRole);
    QPushButton* const change = box.addButton(MsgBox::tr("Change &All"), QMessageBox::DestructiveRole);
    QPushButton* const cancel = box.addButton(MsgBox::tr("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(leave);
    box.setEscapeButton(cancel);
    box.conditionButtons();
    box.exec();
    if (box.clickedButton() == leave)
        return LeftOut::Leave;
    return box.clickedButton() == change ? std::optional(LeftOut::Change) : std::nullopt;
}

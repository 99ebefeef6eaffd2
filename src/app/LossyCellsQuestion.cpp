#include "app/LossyCellsQuestion.h"

#include "model/LossyCells.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QCoreApplication>
#include <QPointer>
#include <QPushButton>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("LossyCellsQuestion", text);
}

} // namespace

bool LossyCellsQuestion::mayChange(QWidget* parent, Theme const& theme, EncodingChange const& change,
                                   std::function<void(TableView*)> const& show) {
    QPointer<TableView> const table = change.table;
    CellRegion const cells = LossyCells::find(*table->tableModel(), change.encoding, change.visibleOnly);
    if (cells.isEmpty())
        return true;
    MsgBox box(parent);
    box.setTheme(theme);
    box.setText(LossyCells::sentence(cells.count(), change.encoding));
    if (!change.path.isEmpty())
        box.nameFile(change.path);
    QPushButton const* const anyway = box.addButton(tr("Change &Anyway"), QMessageBox::DestructiveRole);
    QPushButton const* const toShow = box.addButton(tr("&Show Cells"), QMessageBox::ActionRole);
    QPushButton* const cancel = box.addButton(tr("&Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.conditionButtons();
    box.exec();
    if (table && box.clickedButton() == toShow) {
        showCells(parent, theme, table, cells, show);
    }
    return box.clickedButton() == anyway;
}

void LossyCellsQuestion::showCells(QWidget* parent, Theme const& theme, TableView* table, CellRegion const& cells,
                                   std::function<void(TableView*)> const& show) {
    if (!LossyCells::select(*table->tableModel(), cells)) {
        MsgBox::inform(parent, theme, tr("These cells are hidden."));
        return;
    }
    show(table);
    table->scrollToMainCell(true, true);
}

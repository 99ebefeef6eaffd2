#include "app/prompts/SizePrompts.h"

#include "app/prompts/NumberAnswer.h"
#include "view/TableView.h"

#include <QCoreApplication>
#include <QPointer>

PromptStep Prompts::selectedLineSize(Axis axis, TableView* table) {
    bool const rows = axis == Axis::Rows;
    Range const main = table->getMainCell();
    PromptStep step;
    step.title = rows ? QCoreApplication::translate("Prompts", "Row Height:")
                      : QCoreApplication::translate("Prompts", "Column Width:");
    step.text = QString::number(rows ? table->rowHeight(main.row) : table->columnWidth(main.col));
    step.complaint = [](QString const& answer) { return NumberAnswer::complaint(answer, 1); };
    step.carryOut = [rows, alive = QPointer<TableView>(table)](QString const& answer, PromptAsker&) {
        if (!alive.isNull()) {
            int const size = NumberAnswer::parse(answer);
            rows ? alive->setRowHeights(size) : alive->setColWidths(size);
        }
    };
    return step;
}

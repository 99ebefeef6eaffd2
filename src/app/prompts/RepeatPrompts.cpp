#include "app/prompts/RepeatPrompts.h"

#include "app/prompts/NumberAnswer.h"
#include "model/undo/DuplicateLinesCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/ModelAxis.h"
#include "view/TableView.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("Prompts", text);
}

/// How often at most, so that no more lines come of it than the program takes for a count.
int mostTimes(Axis axis, TableModel& model) {
    auto const lines = ModelAxis(model, axis).touchedLines(model.getSelectedSet()).size();
    return std::max(NumberAnswer::largest / std::max(static_cast<int>(lines), 1), 1);
}

template <class Push>
PromptStep askHowOften(Axis axis, TableView* table, QString const& title, Push push) {
    QPointer<TableView> const alive(table);
    PromptStep step;
    step.title = title;
    step.complaint = [axis, alive](QString const& answer) {
        return alive.isNull() ? QString() : NumberAnswer::complaint(answer, 1, mostTimes(axis, *alive->tableModel()));
    };
    step.carryOut = [alive, push](QString const& answer, PromptAsker&) {
        if (!alive.isNull())
            push(*alive, NumberAnswer::parse(answer));
    };
    return step;
}

} // namespace

PromptStep Prompts::insertLinesBefore(Axis axis, TableView* table) {
    QString const title =
        axis == Axis::Rows ? tr("Number of Times to Insert Row(s):") : tr("Number of Times to Insert Column(s):");
    return askHowOften(axis, table, title, [axis](TableView& on, int times) {
        TableModel* const model = on.tableModel();
        on.pushUndoCommand(new InsertLinesCommand(axis, model, model->getSelectedSet(), times, true, true));
    });
}

PromptStep Prompts::duplicateLines(Axis axis, TableView* table) {
    QString const title =
        axis == Axis::Rows ? tr("Number of Times to Duplicate Row(s):") : tr("Number of Times to Duplicate Column(s):");
    return askHowOften(axis, table, title, [axis](TableView& on, int times) {
        TableModel* const model = on.tableModel();
        on.pushUndoCommand(new DuplicateLinesCommand(axis, model, model->getSelectedSet(), times, true));
    });
}

#include "app/prompts/CellPrompts.h"

#include "app/prompts/CellTarget.h"
#include "core/CellAddress.h"
#include "model/undo/DuplicateCellContentsCommand.h"
#include "model/undo/MoveCellContentsCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "view/TableView.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <functional>

namespace {

using Place = std::function<void(TableView& table, CellTarget const& target)>;

QString tr(char const* text) {
    return QCoreApplication::translate("Prompts", text);
}

/// What a question for a place is about: a cell, or with an axis a row or a column alone.
struct PlaceQuestion {
    QString title;
    Axis axis = Axis::Both;
    QString complaint;

    bool loneNumberIsColumn() const { return axis == Axis::Columns; }
    bool isAnsweredBy(CellTarget const& target) const {
        return (axis != Axis::Columns && target.row != -1) || (axis != Axis::Rows && target.col != -1);
    }
};

Range rangeOf(CellTarget const& target) {
    if (target.row == -1)
        return Range(target.col, RangeType::Column, RangeIndexType::Model);
    if (target.col == -1)
        return Range(target.row, RangeType::Row, RangeIndexType::Model);
    return Range(target.row, target.col, RangeIndexType::Model);
}

void clearHighlight(TableView& table) {
    table.tableModel()->clearHighlightedRange();
    table.returnToInitialScrollBarLocations();
    table.refreshView();
}

/// Shows the place that the user has typed so far, and says which one it is.
QString highlight(TableView& table, QString const& text, PlaceQuestion const& question) {
    TableModel& model = *table.tableModel();
    clearHighlight(table);
    table.setInitialScrollBarLocations();
    int row = Utilities::noLine;
    int col = Utilities::noLine;
    bool const letters = model.getRepresentColumnsAsLetters();
    Utilities::parseCellLocationString(row, col, text.trimmed(), letters, question.loneNumberIsColumn());
    CellTarget const target = CellTarget::fromUser(model, row, col);
    if (target.row < model.rowCount() && target.col < model.columnCount() && (target.row != -1 || target.col != -1)) {
        model.setHighlightedRange(rangeOf(target));
        table.scrollToCell(std::max(target.row, 0), std::max(target.col, 0), true, false,
                           target.row == -1   ? Axis::Columns
                           : target.col == -1 ? Axis::Rows
                                              : Axis::Both);
        table.refreshView();
    }
    return Utilities::computeCellRangeFeedbackString(row, col, letters);
}

PromptStep askForPlace(TableView* table, PlaceQuestion const& question, Place const& act) {
    QPointer<TableView> const alive(table);
    auto const read = [alive, question](QString const& text) {
        return CellTarget::fromText(*alive->tableModel(), text, question.loneNumberIsColumn());
    };
    PromptStep step;
    step.title = question.title;
    step.description = question.axis == Axis::Both
                           ? Utilities::getCellInputInstructions(table->tableModel()->getRepresentColumnsAsLetters())
                           : QString();
    step.complaint = [alive, read, question](QString const& answer) {
        return alive.isNull() || question.isAnsweredBy(read(answer)) ? QString() : question.complaint;
    };
    step.feedback = [alive, question](QString const& text) {
        return alive.isNull() ? QString() : highlight(*alive, text, question);
    };
    step.carryOut = [alive, read, act](QString const& answer, PromptAsker&) {
        if (!alive.isNull())
            act(*alive, read(answer));
    };
    step.closed = [alive] {
        if (!alive.isNull())
            clearHighlight(*alive);
    };
    return step;
}

PromptStep askForCell(TableView* table, QString const& title, Place const& act) {
    return askForPlace(table, {title, Axis::Both, tr("Must be a row, a column or a cell.")}, act);
}

/// How far the main cell is from a place. A line that the user has left out stays.
struct Way {
    Way(TableView const& table, CellTarget const& target)
        : rows(target.row == -1 ? 0 : target.row - table.getMainCell().row),
          cols(target.col == -1 ? 0 : target.col - table.getMainCell().col) {}

    int rows;
    int cols;
};

/// Pushes a command on the selection that carries texts to a place.
template <class Command>
void carryTo(TableView& table, CellTarget const& target) {
    Way const way(table, target);
    if (way.rows != 0 || way.cols != 0) {
        TableModel* const model = table.tableModel();
        table.pushUndoCommand(new Command(model, model->getSelectedSet(), way.rows, way.cols, true));
        table.scrollToMainCell(true, false);
    }
}

} // namespace

PromptStep Prompts::goToCell(TableView* table) {
    return askForCell(table, tr("Go to Cell:"), [](TableView& on, CellTarget const& target) {
        on.moveSelectionAbsolute(target.row, target.col);
        on.enforceTableSize();
        on.scrollToMainCell(true, false);
    });
}

PromptStep Prompts::selectFromMainCellTo(TableView* table) {
    return askForCell(table, tr("Select From Main Cell To:"), [](TableView& on, CellTarget const& target) {
        on.selectFromMainCellTo(target.row, target.col);
        on.enforceTableSize();
        Way const way(on, target);
        Range const main = on.getMainCell();
        on.scrollToCell(main.row + way.rows, main.col + way.cols, true, false, Axis::Both);
    });
}

PromptStep Prompts::moveCellContentsTo(TableView* table) {
    return askForCell(table, tr("Move Cell Contents To:"), carryTo<MoveCellContentsCommand>);
}

PromptStep Prompts::duplicateCellContentsTo(TableView* table) {
    return askForCell(table, tr("Duplicate Cell Contents To:"), carryTo<DuplicateCellContentsCommand>);
}

PromptStep Prompts::moveLinesBefore(Axis axis, TableView* table) {
    bool const rows = axis == Axis::Rows;
    PlaceQuestion const question =
        rows ? PlaceQuestion{tr("Move Row(s) Just Above Row:"), axis, tr("Must be a row.")}
             : PlaceQuestion{tr("Move Column(s) to the Left of Column:"), axis, tr("Must be a column.")};
    return askForPlace(table, question, [axis, rows](TableView& on, CellTarget const& target) {
        TableModel* const model = on.tableModel();
        int const to =
            rows ? std::min(target.row, model->rowCountModel()) : std::min(target.col, model->columnCountModel());
        on.pushUndoCommand(new MoveLinesAbsoluteCommand(axis, model, model->getSelectedSet(), to, true));
    });
}

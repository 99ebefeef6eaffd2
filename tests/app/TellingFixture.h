#pragma once

#include "app/TabBar.h"
#include "tests/app/WindowFixture.h"
#include "view/EditorPane.h"

#include <QHeaderView>
#include <QTabBar>

/// Compares what a window tells the user with what is so.
class TellingFixture : public WindowFixture {
protected:
    /// What the window tells of its active table: title, tab, status bar, editor pane and grid.
    std::string told() {
        QCoreApplication::processEvents(); // the pane is filled in its own time
        QTabBar const& bar = *window.findChild<TabBar*>()->findChild<QTabBar*>();
        auto const has = [this](Context bit) { return hasAnyContext(table()->getContext(), bit); };
        return report(window.windowTitle(), bar.tabText(bar.currentIndex()),
                      {label(StatusBar::Label::TableSize), label(StatusBar::Label::Selection),
                       label(StatusBar::Label::CellLength), label(StatusBar::Label::Stats)},
                      window.getPaneView()->getEditorPane()->toPlainText(), has(Context::HiddenPresent),
                      has(Context::MultiCellSelection),
                      {table()->verticalHeader()->count(), table()->horizontalHeader()->count()});
    }
    /// What is so, by cells, selection and undo stack.
    std::string toBeTold() const {
        TableData const& data = model().getTableData();
        auto const shownOf = [](int count, auto isConcealed) {
            int shown = 0;
            for (int line = 0; line < count; ++line)
                shown += !isConcealed(line);
            return shown;
        };
        int const rows = shownOf(data.numRawRows(), [&](int row) { return data.isRowConcealed(row); });
        int const cols = shownOf(data.numRawCols(), [&](int col) { return data.isColConcealed(col); });
        Range const& main = model().getMainCell();
        QString const text = cell(main.row, main.col);
        RangeVector const selected = model().getSelection();
        bool const single = selected.size() == 1 && selected.front().type == RangeType::Cell;
        QString const name = model().getTableName();
        return report(name + " - Gridwright", (table()->hasUnsavedChanges() ? "\u25CF " : "") + name,
                      {StatusBar::tableSizeText(data.numRawRows(), data.numRawCols(), rows, cols),
                       StatusBar::selectionText(model().getSelectionSize()),
                       QString("Cell Length: %1").arg(text.size()),
                       table()->isReadOnly() ? QString("Sum: -      Mean: -") : model().getSelectionSumMeanStr()},
                      text, rows < data.numRawRows() || cols < data.numRawCols(), !single,
                      {model().rowCount(), model().columnCount()});
    }

private:
    static std::string report(QString const& title, QString const& tab, QStringList const& labels, QString const& pane,
                              bool hidden, bool several, QSize grid) {
        return QString("%1\ntab %2\n%3\npane %4\nhidden %5, several %6, grid %7 x %8")
            .arg(title, tab, labels.join(" | "), pane)
            .arg(hidden)
            .arg(several)
            .arg(grid.width())
            .arg(grid.height())
            .toStdString();
    }
};

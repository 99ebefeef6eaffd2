#include "app/DelimiterOnlySave.h"

#include "core/DialectUtilities.h"
#include "model/undo/DialectCommand.h"
#include "model/undo/ReplaceLineBreaksCommand.h"
#include "view/TableView.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("DelimiterOnlySave", text);
}

bool isLineBreak(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\r');
}

/// Whether the cell may hold a line break, judged by its bytes in whatever encoding.
bool mayHoldLineBreak(AbstractDataContainer::Bytes const& cell) {
    return std::any_of(cell.begin(), cell.end(), [](auto byte) { return byte == '\n' || byte == '\r'; });
}

/// Calls `visit` with the raw place, as the user sees the table, and the text of each cell with a line break.
template <class Visit>
void forEachLineBreakCell(TableModel const& model, bool visibleOnly, Visit visit) {
    TableData const& data = model.getTableData();
    bool const transposed = data.isTransposed();
    int const storedRows = transposed ? data.numRawCols() : data.numRawRows();
    AbstractDataContainer::Cells cells;
    for (int stored = 0; stored < storedRows; ++stored) {
        cells.clear();
        data.getRow(cells, stored, true, GetRowColMaskType::NoMask, {});
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!mayHoldLineBreak(cells[i])) {
                continue;
            }
            int const other = static_cast<int>(i);
            int const row = transposed ? other : stored;
            int const col = transposed ? stored : other;
            if (visibleOnly && (data.isRowConcealed(row) || data.isColConcealed(col))) {
                continue;
            }
            QString const text = data.getValueRaw(row, col).toString();
            if (std::any_of(text.begin(), text.end(), isLineBreak)) {
                visit(row, col, text);
            }
        }
    }
}

} // namespace

int DelimiterOnlySave::countCellsWithLineBreaks(TableModel const& model, bool visibleOnly) {
    int count = 0;
    forEachLineBreakCell(model, visibleOnly, [&count](int, int, QString const&) { ++count; });
    return count;
}

void DelimiterOnlySave::replaceLineBreaks(TableView& table, QString const& replacement, bool visibleOnly) {
    static QRegularExpression const lineBreak(QStringLiteral("\r\n|\r|\n"));
    RangeVector cells;
    forEachLineBreakCell(*table.tableModel(), visibleOnly, [&](int row, int col, QString const& text) {
        QStringList const pieces = text.split(lineBreak);
        Range cell(row, col, RangeIndexType::Raw);
        cell.oldValue = text;
        cell.value = pieces.join(replacement);
        cells.push_back(cell);
    });
    table.pushUndoCommand(new ReplaceLineBreaksCommand(table.tableModel(), cells));
}

QString DelimiterOnlySave::question(int count) {
    QString const found =
        count == 1 ? tr("1 cell contains line breaks.") : tr("%1 cells contain line breaks.").arg(count);
    return tr("Cannot save as <b>Delimiter Only</b>.<br><br>%1 You can either:<br><br>- Change Parsing Standard<br>- "
              "Replace them<br>- Remove them<br>- Cancel<br><br>What would you like to do?")
        .arg(found);
}

void DelimiterOnlySave::applyReplacement(PendingSave const& save, QString const& replacement, Resume const& resume) {
    if (save.table) {
        replaceLineBreaks(*save.table, replacement, save.visibleOnly);
        resume(save);
    }
}

PromptStep DelimiterOnlySave::askForParsingStandard(PendingSave const& save, Resume const& resume) {
    PromptStep step;
    step.title = tr("Select a different Parsing Standard:");
    for (ParsingStandard const standard :
         {ParsingStandard::Rfc4180, ParsingStandard::AllQuotes, ParsingStandard::SparseQuotes}) {
        step.options.emplace_back(Utilities::convertParsingStandardToString(standard));
    }
    step.carryOut = [save, resume](QString const& answer, PromptAsker&) {
        ParsingStandard const standard = Utilities::convertParsingStringToStandard(answer);
        if (!save.table || standard == ParsingStandard::Invalid) {
            return;
        }
        PendingSave changed = save;
        changed.dialect.parsingStandard = standard;
        if (changed.path.isEmpty()) {
            TableModel* const model = save.table->tableModel();
            save.table->pushUndoCommand(new SetParsingStandardCommand(model, {}, standard, false));
        }
        resume(changed);
    };
    return step;
}

PromptStep DelimiterOnlySave::askForReplacement(PendingSave const& save, Resume const& resume) {
    static constexpr auto custom = "Custom";
    PromptStep step;
    step.title = tr("Replace line breaks with:");
    for (auto const& [name, text] :
         {std::pair("Space", " "), std::pair("Comma", ","), std::pair("Tab", "\t"), std::pair("\\n", "\\n")}) {
        step.options.emplace_back(tr(name));
        step.options.back().response = QString::fromLatin1(text);
    }
    step.options.emplace_back(tr(custom));
    step.options.back().response = QLatin1String(custom);
    step.carryOut = [save, resume](QString const& answer, PromptAsker& asker) {
        if (answer != QLatin1String(custom)) {
            applyReplacement(save, answer, resume);
            return;
        }
        PromptStep text;
        text.title = tr("Custom Line Break Replacement:");
        text.carryOut = [save, resume](QString const& reply, PromptAsker&) { applyReplacement(save, reply, resume); };
        asker.ask(text);
    };
    return step;
}

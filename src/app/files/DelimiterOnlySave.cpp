#include "app/files/DelimiterOnlySave.h"

#include "core/DialectUtilities.h"
#include "model/LineBreakCells.h"
#include "model/undo/DialectCommand.h"
#include "model/undo/ReplaceLineBreaksCommand.h"
#include "view/TableView.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <utility>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("DelimiterOnlySave", text);
}

/// The table may have gone, or been read again in another standard, while the launcher stood open.
bool isWanted(PendingSave const& save) {
    return save.table && !save.table->isLoading() &&
           (!save.isToOwnFile() || save.table->tableModel()->getParsingStandard() == ParsingStandard::DelimiterOnly);
}

} // namespace

void DelimiterOnlySave::replaceLineBreaks(TableView& table, QString const& replacement, bool visibleOnly) {
    static QRegularExpression const lineBreak(QStringLiteral("\r\n|\r|\n"));
    RangeVector cells;
    LineBreakCells::forEach(*table.tableModel(), visibleOnly, [&](int row, int col, QString const& text) {
        QStringList const pieces = text.split(lineBreak);
        Range cell(row, col, RangeIndexType::Raw);
        cell.setOldValue(text);
        cell.setValue(pieces.join(replacement));
        cells.push_back(cell);
    });
    table.pushUndoCommand(new ReplaceLineBreaksCommand(table.tableModel(), cells));
}

QString DelimiterOnlySave::question(int count) {
    return tr("Cannot save as <b>Delimiter Only</b>.<br><br>%1 You can either:<br><br>- Change Parsing Standard<br>- "
              "Replace them<br>- Remove them<br>- Cancel<br><br>What would you like to do?")
        .arg(LineBreakCells::sentence(count));
}

void DelimiterOnlySave::applyReplacement(PendingSave const& save, QString const& replacement, Resume const& resume) {
    if (isWanted(save)) {
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
        if (!isWanted(save) || standard == ParsingStandard::Invalid) {
            return;
        }
        PendingSave changed = save;
        changed.dialect.parsingStandard = standard;
        if (changed.isToOwnFile()) {
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

#pragma once

#include "app/launcher/PromptStep.h"
#include "core/ExtensionData.h"

#include <QPointer>
#include <QString>

#include <functional>

class TableView;

/// A save that waits for answers. The table may be closed meanwhile, which ends the save without a word.
struct PendingSave {
    QPointer<TableView> table;
    QString path;             ///< empty for a save to the table's own file
    ExtensionData dialect;    ///< of a save to `path`
    bool visibleOnly = false; ///< writes a copy without what is concealed; the table stays on its file
};

/// A table that is saved as Delimiter Only cannot hold line breaks in its cells. Before such a save the user says what
/// becomes of them.
namespace DelimiterOnlySave {

/// Carries a save on after an answer.
using Resume = std::function<void(PendingSave const& save)>;

/// Puts `replacement` in the place of each line break, where CR LF is one, as one change that can be undone.
void replaceLineBreaks(TableView& table, QString const& replacement, bool visibleOnly);

/// The question about `count` cells, as rich text.
QString question(int count);

/// Asks for the standard to save in instead.
PromptStep askForParsingStandard(PendingSave const& save, Resume const& resume);
/// Asks for the text that replaces line breaks.
PromptStep askForReplacement(PendingSave const& save, Resume const& resume);
/// Replaces and carries on, if the table is still there.
void applyReplacement(PendingSave const& save, QString const& replacement, Resume const& resume);

} // namespace DelimiterOnlySave

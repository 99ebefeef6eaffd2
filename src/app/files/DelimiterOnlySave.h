#pragma once

#include "app/files/PendingSave.h"
#include "app/launcher/PromptStep.h"

#include <QString>

#include <functional>

class TableView;

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

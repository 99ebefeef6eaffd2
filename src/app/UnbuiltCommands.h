#pragma once

#include "appearance/Theme.h"

#include <QMainWindow>

/// The commands of the table that the program cannot carry out yet. Each says so in a plain message; a window that
/// learns one declares a slot of the same name, and its line here goes.
class UnbuiltCommands : public QMainWindow {
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

    virtual Theme const& getTheme() const = 0;

public slots:
    void commandOpenFolder() { tellNotBuilt(); }
    void commandOpenRecentFile() { tellNotBuilt(); }
    void commandCloseFolder() { tellNotBuilt(); }
    void commandPrint() { tellNotBuilt(); }
    void commandImport() { tellNotBuilt(); }
    void commandExport() { tellNotBuilt(); }
    void commandExportToPdf() { tellNotBuilt(); }
    void commandDuplicateFile() { tellNotBuilt(); }
    void commandMoveFile() { tellNotBuilt(); }
    void commandRenameFile() { tellNotBuilt(); }
    void commandDeleteFile() { tellNotBuilt(); }
    void commandShowFileInFileSystem() { tellNotBuilt(); }
    void commandOpenTerminalToFilesDirectory() { tellNotBuilt(); }
    void commandOpenFileInTextEditor() { tellNotBuilt(); }
    void commandCutCells() { tellNotBuilt(); }
    void commandCopyCells() { tellNotBuilt(); }
    void commandCopyCellsWithHeader() { tellNotBuilt(); }
    void commandCopyCellsToMarkdown() { tellNotBuilt(); }
    void commandCopyCellsToHtml() { tellNotBuilt(); }
    void commandPasteCells() { tellNotBuilt(); }
    void commandPasteCellsSpecial() { tellNotBuilt(); }
    void commandConvertDateTimeFormat() { tellNotBuilt(); }
    void commandConvertNumberFormat() { tellNotBuilt(); }
    void commandPlaceCurrentDateTimeStampNowInSelectedCells() { tellNotBuilt(); }
    void commandZeroFillWholeNumbers() { tellNotBuilt(); }
    void commandRandomIntegersInSelectedCells() { tellNotBuilt(); }
    void commandRandomDecimalsFloatsInSelectedCells() { tellNotBuilt(); }
    void commandSetNumberOfDecimals() { tellNotBuilt(); }
    void commandFillSelectedCellsWithSeries() { tellNotBuilt(); }
    void commandReshapeSelectedCellsRowWise() { tellNotBuilt(); }
    void commandReshapeSelectedCellsColumnWise() { tellNotBuilt(); }
    void commandJoinSelectedCellsHorizontally() { tellNotBuilt(); }
    void commandJoinSelectedCellsVertically() { tellNotBuilt(); }
    void commandJoinSelectedCellsHorizontallyMoveRestOfRowLeft() { tellNotBuilt(); }
    void commandSplitSelectedCellsHorizontally() { tellNotBuilt(); }
    void commandSplitSelectedCellsVertically() { tellNotBuilt(); }
    void commandSplitSelectedCellsHorizontallyMoveRestOfRowRight() { tellNotBuilt(); }
    void commandKeepOnlyLeftPartOfSelectedCells() { tellNotBuilt(); }
    void commandKeepOnlyMiddlePartOfSelectedCells() { tellNotBuilt(); }
    void commandKeepOnlyRightPartOfSelectedCells() { tellNotBuilt(); }
    void commandAddFilter() { tellNotBuilt(); }
    void commandAddFilterWithRegularExpressions() { tellNotBuilt(); }
    void commandViewEditFilters() { tellNotBuilt(); }
    void commandFilterSelectedRow() { tellNotBuilt(); }
    void commandFilterSelectedColumn() { tellNotBuilt(); }
    void commandFilterSelectedRowWithRegularExpressions() { tellNotBuilt(); }
    void commandFilterSelectedColumnWithRegularExpressions() { tellNotBuilt(); }
    void commandFilterSelectedRowsWithSelectedCellContents() { tellNotBuilt(); }
    void commandFilterSelectedColumnsWithSelectedCellContents() { tellNotBuilt(); }
    void commandSelectValuesInSelectedColumnToFilter() { tellNotBuilt(); }
    void commandRemoveIndividualFilters() { tellNotBuilt(); }
    void commandRemoveAllFilters() { tellNotBuilt(); }
    void commandRefreshFilters() { tellNotBuilt(); }
    void commandPrependCellContents() { tellNotBuilt(); }
    void commandAppendCellContents() { tellNotBuilt(); }
    void commandAddOrUpdateIDColumn() { tellNotBuilt(); }
    void commandParseSelectedCellContentsAsTable() { tellNotBuilt(); }
    void commandAddNextMatchToSelection() { tellNotBuilt(); }
    void commandSelectAllMatches() { tellNotBuilt(); }
    void commandFind() { tellNotBuilt(); }
    void commandFindNextMatch() { tellNotBuilt(); }
    void commandFindPreviousMatch() { tellNotBuilt(); }
    void commandFindAllMatches() { tellNotBuilt(); }
    void commandReplace() { tellNotBuilt(); }
    void commandReplaceNextMatch() { tellNotBuilt(); }
    void commandReplacePreviousMatch() { tellNotBuilt(); }
    void commandReplaceAllMatches() { tellNotBuilt(); }
    void commandOpenFileAnalysisWindow() { tellNotBuilt(); }
    void commandStatisticsSelectedColumns() { tellNotBuilt(); }
    void commandStatisticsAllColumns() { tellNotBuilt(); }
    void commandStatisticsSelectedCells() { tellNotBuilt(); }
    void commandStatisticsSelectedCellsByColumns() { tellNotBuilt(); }
    void commandColumnAnalysisSelectedColumns() { tellNotBuilt(); }
    void commandColumnAnalysisAllColumns() { tellNotBuilt(); }
    void commandUniqueValuesSelectedColumn() { tellNotBuilt(); }
    void commandPivotTableSelectedColumns() { tellNotBuilt(); }
    void commandColumnLookup() { tellNotBuilt(); }
    void commandFollowSelectedHyperlinks() { tellNotBuilt(); }
    void commandEmailSelectedEmailAddresses() { tellNotBuilt(); }
    void commandWebSearchForSelectedTerms() { tellNotBuilt(); }
    void commandWebSearchForSelectedPlacesInMap() { tellNotBuilt(); }
    void commandPreferences() { tellNotBuilt(); }
    void commandReportABug() { tellNotBuilt(); }
    void commandRequestAFeature() { tellNotBuilt(); }
    void commandTakeASurvey() { tellNotBuilt(); }
    void commandGeneralFeedbackQuestions() { tellNotBuilt(); }
    void commandDocumentation() { tellNotBuilt(); }
    void commandOpenTutorial() { tellNotBuilt(); }
    void commandRestoreTutorialToDefault() { tellNotBuilt(); }
    void commandAbout() { tellNotBuilt(); }
    void commandCheckForUpdates() { tellNotBuilt(); }
    void commandViewChangelog() { tellNotBuilt(); }
    void commandToggleEnableCheckForUpdates() { tellNotBuilt(); }
    void commandToggleDetectImportedFileTypeUponOpeningFile() { tellNotBuilt(); }
    void commandToggleShowSideBar() { tellNotBuilt(); }
    void commandToggleShowFileMetadata() { tellNotBuilt(); }
    void commandToggleShowSideBarOpenFiles() { tellNotBuilt(); }
    void commandToggleShowSideBarFolders() { tellNotBuilt(); }

private:
    /// Names the command by the action that triggered the running slot.
    void tellNotBuilt();
};

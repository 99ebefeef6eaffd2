#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PromptChain.h"
#include "app/prompts/CellPrompts.h"
#include "app/prompts/DialectPrompts.h"
#include "app/prompts/RepeatPrompts.h"
#include "app/prompts/SettingPrompts.h"
#include "commands/PreferenceFiles.h"
#include "commands/Settings.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/ScriptedAsker.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>

namespace {

class PromptsTest : public WindowFixture {
protected:
    PromptsTest() { open("a,b,c\nd,e,f\ng,h,i\n"); }

    /// The cells, rows by slashes, "." for an empty one.
    QString cells() const { return QString::fromStdString(shown()).remove(' ').replace('|', '/').replace('-', '.'); }

    QString mainCell() const {
        Range const cell = table()->getMainCell();
        return QString("%1,%2").arg(cell.row).arg(cell.col);
    }

    void selectCell(int row, int col) { table()->setMainCellAsSelection(Range(row, col, RangeIndexType::Model)); }
};

} // namespace

TEST_F(PromptsTest, APlaceIsReadInTheNumbersOfTheHeadersAndEveryMoveCanBeUndone) {
    QString const untouched = "abc/def/ghi";
    auto const moveRows = [](TableView* on) { return Prompts::moveLinesBefore(Axis::Rows, on); };
    auto const moveCols = [](TableView* on) { return Prompts::moveLinesBefore(Axis::Columns, on); };
    struct Case {
        PromptStep (*prompt)(TableView*);
        int firstIndex;
        QStringList answers;
        char const* title;
        char const* cells; ///< null where they stay
        char const* mainCell;
        bool letters = false;
    };
    Case const cases[] = {
        {Prompts::goToCell, 0, {" 2 0 "}, "Go to Cell:", nullptr, "2,0"},
        {Prompts::goToCell, 0, {"c8, 25"}, "Go to Cell:", nullptr, "25,8"},
        {Prompts::goToCell, 1, {"C8 R25"}, "Go to Cell:", nullptr, "24,7"},
        {Prompts::goToCell, 1, {"r0"}, "Go to Cell:", nullptr, "0,1"},
        {Prompts::goToCell, 1, {"c3"}, "Go to Cell:", nullptr, "1,2"},
        {Prompts::goToCell, 0, {"a"}, "Go to Cell:", nullptr, "1,0", true},
        {Prompts::goToCell, 0, {"ab25"}, "Go to Cell:", nullptr, "25,27", true},
        {Prompts::goToCell, -5, {"", "here", "-2147483647 2147483647"}, "Go to Cell:", nullptr, "0,999999"},
        {Prompts::goToCell, 0, {"300"}, "Go to Cell:", nullptr, "300,1"},
        {Prompts::selectFromMainCellTo, 1, {"3 3"}, "Select From Main Cell To:", nullptr, "1,1"},
        {Prompts::moveCellContentsTo, 0, {"r0"}, "Move Cell Contents To:", "aec/d.f/ghi", "0,1"},
        {Prompts::moveCellContentsTo, 0, {"D1"}, "Move Cell Contents To:", "abc./d.fe/ghi.", "1,3", true},
        {Prompts::duplicateCellContentsTo, 1, {"3 1"}, "Duplicate Cell Contents To:", "abc/def/ehi", "2,0"},
        {moveRows, 1, {"c1", "1"}, "Move Row(s) Just Above Row:", "def/abc/ghi", "0,0"},
        {moveRows, 1, {"900"}, "Move Row(s) Just Above Row:", "abc/ghi/def", "2,0"},
        {moveCols, 0, {"r1", "0"}, "Move Column(s) to the Left of Column:", "bac/edf/hgi", "0,0"},
        {moveCols, 0, {"1", "d"}, "Move Column(s) to the Left of Column:", "acb/dfe/gih", "0,2", true},
    };
    for (Case const& wanted : cases) {
        SCOPED_TRACE(wanted.title + wanted.answers.join('|').toStdString());
        model().setFirstRowIndex(wanted.firstIndex);
        model().setFirstColIndex(wanted.firstIndex);
        model().setRepresentColumnsAsLetters(wanted.letters);
        selectCell(1, 1);
        if (wanted.prompt == +moveRows)
            table()->selectRow(1);
        if (wanted.prompt == +moveCols)
            table()->selectCol(1);
        ScriptedAsker asker(wanted.answers);
        asker.ask(wanted.prompt(table()));
        EXPECT_EQ(asker.titles, QStringList{wanted.title});
        EXPECT_EQ(asker.complaints.size(), wanted.answers.size() - 1);
        EXPECT_EQ(asker.feedbacks.value(0), "(No cell selected)");
        EXPECT_TRUE(model().getHighlightedRanges().empty());
        EXPECT_EQ(cells(), wanted.cells == nullptr ? untouched : wanted.cells);
        EXPECT_EQ(mainCell(), wanted.mainCell);
        EXPECT_EQ(table()->undoStack()->isClean(), wanted.cells == nullptr);
        table()->undo();
        EXPECT_EQ(cells(), untouched);
    }
}

TEST_F(PromptsTest, WhileAPlaceIsTypedItIsHighlightedAndWithoutAnAnswerAllIsAsBefore) {
    PromptStep const step = Prompts::goToCell(table());
    EXPECT_EQ(step.feedback(""), "(No cell selected)");
    EXPECT_EQ(step.feedback("1 2"), "Row 1, Column 2");
    EXPECT_TRUE(model().cellInHighlightedRange(Range(1, 2, RangeIndexType::Model)));
    EXPECT_EQ(step.feedback("c2"), "Column 2");
    EXPECT_TRUE(model().cellInHighlightedRange(Range(40, 2, RangeIndexType::Model)));
    EXPECT_FALSE(model().cellInHighlightedRange(Range(40, 1, RangeIndexType::Model)));
    step.closed();
    EXPECT_TRUE(model().getHighlightedRanges().empty());
    EXPECT_EQ(mainCell(), "0,0");
}

TEST_F(PromptsTest, AConcealedPlaceMeansTheNearestLineInFrontAndAClosedTableNothing) {
    model().concealRawRows({1});
    ScriptedAsker({"1 1"}).ask(Prompts::goToCell(table()));
    EXPECT_EQ(mainCell(), "0,1");
    PromptStep const step = Prompts::goToCell(table());
    window.closeFile(table());
    ScriptedAsker({"nonsense"}).ask(step);
    EXPECT_EQ(mainCell(), "0,0");
}

TEST_F(PromptsTest, LinesAreInsertedAndDuplicatedAGoodNumberOfTimes) {
    QString const tooFew = "Must be a whole number 1 or greater.";
    selectCell(1, 1);
    ScriptedAsker inserted({"0", "x", "", "1"});
    inserted.ask(Prompts::insertLinesBefore(Axis::Columns, table()));
    EXPECT_EQ(inserted.complaints, QStringList({tooFew, tooFew, tooFew}));
    EXPECT_EQ(cells(), "a.bc/d.ef/g.hi");
    table()->undo();
    ScriptedAsker duplicated({"1000001", " 2 "});
    duplicated.ask(Prompts::duplicateLines(Axis::Rows, table()));
    EXPECT_EQ(duplicated.complaints, QStringList("Must be a whole number 1000000 or less."));
    EXPECT_EQ(cells(), "abc/def/def/def/ghi");
    select("C0,0 C1,0 C2,0");
    EXPECT_EQ(Prompts::duplicateLines(Axis::Rows, table()).complaint("333334"),
              "Must be a whole number 333333 or less.");
    EXPECT_EQ(Prompts::insertLinesBefore(Axis::Columns, table()).complaint("1000000"), "");
}

TEST_F(PromptsTest, SizesAreThoseOfTheSelectedLinesOfTheirAxis) {
    select("C1,1 C2,0");
    int const height = table()->rowHeight(0);
    int const width = table()->columnWidth(2);
    box.next("OK");
    run("Set Selected Row Height(s)", {"0", "44"});
    EXPECT_EQ(box.texts(), QStringList("Must be a whole number 1 or greater."));
    run("Set Selected Column Width(s)", {"133"});
    TableView const& view = *table();
    EXPECT_EQ((std::vector<int>{view.rowHeight(0), view.rowHeight(1), view.rowHeight(2), view.rowHeight(3)}),
              (std::vector<int>{height, 44, 44, height}));
    EXPECT_EQ((std::vector<int>{view.columnWidth(0), view.columnWidth(1), view.columnWidth(2)}),
              (std::vector<int>{133, 133, width}));
    for (auto const& [command, title, text] : {std::tuple("Set Selected Row Height(s)", "Row Height:", "44"),
                                               std::tuple("Set Selected Column Width(s)", "Column Width:", "133")}) {
        window.runCommand(command);
        EXPECT_EQ(prompts.editorText(), text);
        prompts.leave(title);
    }
}

TEST_F(PromptsTest, EverySettingWithAValueAsksInItsOwnWordsAndTakesOnlyWhatIsGood) {
    struct Case {
        SettingType type;
        QStringList answers; // the last one is good
        QString stored;
        QStringList titles;
        QString complaint;
    };
    QString const fromZero = "Must be a whole number 0 or greater.";
    QString const fromOne = "Must be a whole number 1 or greater.";
    QString const noOption = "Must be one of the options.";
    QString const font = QFontDatabase::families().value(0, "none");
    Case const cases[] = {
        {SettingType::MinimumNumberOfTableRows, {"0", " 1"}, "1", {"Minimum Number of Table Rows:"}, fromOne},
        {SettingType::NumberOfBufferColumns, {"-1", "0"}, "0", {"Number of Buffer Columns:"}, fromZero},
        {SettingType::FirstRowIndex, {"1.5", "-5"}, "-5", {"First Row Index:"}, "Must be a whole number."},
        {SettingType::TextSize, {"big", "20"}, "20", {"Text Size:"}, fromOne},
        {SettingType::Theme, {"pink", "Light"}, "Light", {"Theme:"}, noOption},
        {SettingType::Font, {"", font}, font, {"Font:"}, noOption},
        {SettingType::UUIDType, {"v5", "v7"}, "v7", {"Select UUID type:"}, noOption},
        {SettingType::BehaviorWhenFileIsChangedExternally,
         {"Refresh", "ask"},
         "ask",
         {"Behavior When File Is Changed Externally:"},
         noOption},
        {SettingType::TextEditor, {"/no/editor", "/bin/sh"}, "/bin/sh", {"Text Editor:"}, "Invalid editor path."},
        {SettingType::SearchEngine, {"", "google.com"}, "google.com", {"Select a Search Engine Domain:"}, noOption},
        {SettingType::OnlineMap,
         {"Enter Custom Domain", "", " maps.example "},
         "maps.example",
         {"Select a Map Domain:", "Enter Custom Map Domain:"},
         "Must be the domain of a service."},
    };
    Settings const settings;
    EXPECT_EQ(Prompts::setting(settings.get(SettingType::Theme), {}).selected, "Dark");
    EXPECT_EQ(Prompts::setting(settings.get(SettingType::SearchEngine), {}).selected, "duckduckgo.com");
    for (Case const& wanted : cases) {
        SCOPED_TRACE(qPrintable(wanted.titles.first()));
        QString stored;
        ScriptedAsker asker(wanted.answers);
        asker.ask(Prompts::setting(settings.get(wanted.type), [&](QString const& value) { stored = value; }));
        EXPECT_EQ(asker.titles, wanted.titles);
        EXPECT_EQ(asker.complaints, QStringList{wanted.complaint});
        EXPECT_EQ(stored, wanted.stored);
        Settings changed;
        EXPECT_TRUE(changed.setFromString(settings.get(wanted.type).name, stored));
        EXPECT_EQ(changed.convertValueToStringForFile(wanted.type).toLower(), stored.toLower());
    }
}

bool any(EncodingType) {
    return true;
}

TEST_F(PromptsTest, ParametersOfASaveAreSetInOneUndoableChangeAndToldInTheStatusBar) {
    auto const labels = [&] {
        return QStringList{window.getStatusBar()->text(StatusBar::Label::Delimiter),
                           window.getStatusBar()->text(StatusBar::Label::Encoding),
                           window.getStatusBar()->text(StatusBar::Label::LineEnding)};
    };
    QStringList const before = labels();
    ScriptedAsker asker({"", "tab", "Windows (CR LF)", "morse", "UTF-16LE", "All Quotes"});
    asker.ask(Prompts::saveDialect(
        {DialectPart::Delimiter, DialectPart::LineEnding, DialectPart::Encoding, DialectPart::ParsingStandard}, table(),
        any));
    EXPECT_EQ(asker.titles, QStringList({"Delimiter:", "Line Ending:", "Encoding:", "Parsing Standard:"}));
    EXPECT_EQ(asker.complaints.size(), 2);
    EXPECT_EQ(labels(), QStringList({"Delimiters (Load, Save): comma (,), tab", "UTF-16LE", "Windows"}));
    EXPECT_EQ(model().getParsingStandard(), ParsingStandard::AllQuotes);
    EXPECT_EQ(cells(), "abc/def/ghi");
    table()->undo();
    EXPECT_EQ(labels(), before);
    EXPECT_EQ(model().getParsingStandard(), ParsingStandard::Rfc4180);
    EXPECT_TRUE(table()->undoStack()->isClean());

    ScriptedAsker({"Windows (CR LF)"}).ask(Prompts::saveDialect({DialectPart::LineEnding}, table(), any));
    EXPECT_EQ(labels(), QStringList({before[0], before[1], "Windows"}));
    table()->undo();
    ScriptedAsker({","}).ask(Prompts::saveDialect({DialectPart::Delimiter}, table(), any));
    EXPECT_EQ(table()->undoStack()->count(), 1) << "what is the same already is no change";
}

TEST_F(PromptsTest, AReloadAsksForThePartsAndLooksIntoTheFileForWhatIsLeftOpen) {
    Dialect wanted = Dialect::ofLoad(*table());
    ScriptedAsker asker({"(auto)", "UTF-16", "Delimiter Only"});
    model().setDelimiter(";", ";");
    asker.ask(Prompts::reloadDialect({DialectPart::Delimiter, DialectPart::Encoding, DialectPart::ParsingStandard},
                                     table(), [&](Dialect const& dialect) { wanted = dialect; }));
    EXPECT_EQ(wanted.delimiter, ",");
    EXPECT_EQ(wanted.encoding, EncodingType::Utf16GuessedLE);
    EXPECT_EQ(wanted.parsingStandard, ParsingStandard::DelimiterOnly);
}

TEST_F(PromptsTest, AQuestionForADialectBeginsAtWhatIsInForceAndNamesTheDelimiters) {
    model().setDelimiter(";", "|");
    model().setParsingStandard(ParsingStandard::SparseQuotes);
    auto const reload = [&](DialectPart part) { return Prompts::reloadDialect({part}, table(), {}); };
    PromptStep const step = reload(DialectPart::Delimiter);
    EXPECT_EQ(step.selected, ";");
    QStringList names;
    for (OptionData const& option : step.options)
        names << option.text + '=' + option.valuePill;
    EXPECT_EQ(names, (QStringList{"(auto)=", ",=comma", "tab=", ";=semi-colon", "|=pipe",
                                  "space=", "Unit Separator=", "(none)="}));
    EXPECT_EQ(Prompts::saveDialect({DialectPart::Delimiter}, table(), any).selected, "|");
    EXPECT_EQ(reload(DialectPart::Encoding).selected, "UTF-8");
    EXPECT_EQ(reload(DialectPart::ParsingStandard).selected, "Sparse Quotes");
    model().setDelimiter("::", ",");
    EXPECT_EQ(reload(DialectPart::Delimiter).selected, "::");
    EXPECT_EQ(reload(DialectPart::Delimiter).options.back().response, "::") << "Enter alone changes nothing";
}

TEST_F(PromptsTest, AnEncodingOfTheListGoesToTheClipboard) {
    ScriptedAsker({"KOI8-R (Russian)"}).ask(Prompts::listCharacterEncodings());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "KOI8-R (Russian)");
}

TEST_F(PromptsTest, EachCommandPutsItsQuestion) {
    std::pair<char const*, char const*> const titles[] = {
        {"Go to Cell", "Go to Cell:"},
        {"Select From Main Cell To ...", "Select From Main Cell To:"},
        {"Move Cell Contents To ...", "Move Cell Contents To:"},
        {"Duplicate Cell Contents To ...", "Duplicate Cell Contents To:"},
        {"Move Row(s) Just Above Row ...", "Move Row(s) Just Above Row:"},
        {"Move Column(s) to the Left of Column ...", "Move Column(s) to the Left of Column:"},
        {"Insert Row(s) Before Multiple Times", "Number of Times to Insert Row(s):"},
        {"Insert Column(s) Before Multiple Times", "Number of Times to Insert Column(s):"},
        {"Duplicate Row(s) Multiple Times", "Number of Times to Duplicate Row(s):"},
        {"Duplicate Column(s) Multiple Times", "Number of Times to Duplicate Column(s):"},
        {"Reload File with Different Parameters", "Delimiter:"},
        {"Reload File with Parsing Standard", "Parsing Standard:"},
        {"Set Parameters for File Save", "Delimiter:"},
        {"Set Line Ending for File Save", "Line Ending:"},
        {"Set Encoding for File Save", "Encoding:"},
        {"List Character Encodings", "Character Encodings:"},
        {"Set Selected Row Height(s)", "Row Height:"},
        {"Set Selected Column Width(s)", "Column Width:"},
        {"Set UUID Type", "Select UUID type:"},
        {"Set Search Engine", "Select a Search Engine Domain:"},
        {"Set Online Map", "Select a Map Domain:"},
    };
    for (auto const& [command, title] : titles) {
        window.runCommand(command);
        EXPECT_EQ(window.getPrompts()->currentTitle(), title) << command;
        window.closeLauncher();
    }
    for (Setting const& setting : window.getSettings().sorted()) {
        QString const command = "Set " + setting.name;
        if (setting.dataType == SettingDataType::Bool || setting.dataType == SettingDataType::UuidType ||
            setting.dataType == SettingDataType::Domain || !setting.inFile)
            continue;
        window.runCommand(command);
        EXPECT_EQ(window.getPrompts()->currentTitle(), setting.name + ':') << qPrintable(command);
        window.closeLauncher();
    }
}

TEST_F(PromptsTest, ASettingOfTheProgramReachesItsFileAndEveryTableAndOneOfATableOnlyThatTable) {
    ASSERT_TRUE(PreferenceFiles::makeSettingsFile());
    window.commandNewFile();
    box.next("OK");
    run("Set Minimum Number of Table Rows", {"none", "70"});
    EXPECT_EQ(box.texts(), QStringList{"Must be a whole number 1 or greater."});
    run("Set First Row Index", {"-5"});
    run("Set Number of Header Columns", {"2"});
    run("Set Maximum Column Width for Auto-Fit", {"90"});
    for (TableView const* each : window.getPaneView()->getTables()) {
        EXPECT_EQ(each->tableModel()->getMinNumTableRows(), 70);
        EXPECT_EQ(each->tableModel()->getFirstRowIndex(), each == table() ? -5 : 0);
        EXPECT_EQ(each->tableModel()->getNumHeaderCols(), each == table() ? 2 : 0);
        EXPECT_EQ(each->getMaximumColumnWidth(), each == table() ? 90 : 800);
    }
    EXPECT_EQ(window.getSettings().getValueInt(SettingType::FirstRowIndex), 0);
    QByteArray const file = read(Utilities::getSettingsFilepath());
    EXPECT_TRUE(file.contains("Minimum Number of Table Rows,Global,integer >= 1,50,70\n")) << file.constData();
    QFile::remove(Utilities::getSettingsFilepath());
    EXPECT_TRUE(file.contains("First Row Index,Table,integer,0,\n")) << file.constData();
}

TEST_F(PromptsTest, AReloadReadsTheFileAgainAndAsksBeforeChangesAreLost) {
    TableView* const reloaded = table();
    auto const waitForLoad = [&] { return QTest::qWaitFor([&] { return !reloaded->isLoading(); }); };
    run("Reload File with Delimiter", {"tab"});
    ASSERT_TRUE(waitForLoad());
    EXPECT_EQ(cells(), "a,b,c/d,e,f/g,h,i");
    EXPECT_EQ(window.getStatusBar()->text(StatusBar::Label::Delimiter), "Delimiter: tab");
    run("Insert Row(s) Before Multiple Times", {"1"});
    EXPECT_FALSE(table()->undoStack()->isClean());
    box.next("Cancel");
    window.runCommand("Reload File");
    EXPECT_FALSE(table()->undoStack()->isClean());
    box.next("Discard");
    window.runCommand("Reload File");
    ASSERT_TRUE(waitForLoad());
    EXPECT_TRUE(table()->undoStack()->isClean());
    EXPECT_EQ(cells(), "a,b,c/d,e,f/g,h,i");
}

#include "commands/PreferenceFiles.h"

#include "commands/Commands.h"
#include "commands/Settings.h"
#include "core/EncodingUtilities.h"
#include "core/PathUtilities.h"
#include "model/TableModel.h"
#include "tests/support/TestFolder.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

constexpr char const* newExtensionsFile =
    R"x("For a given file extension,",--- Delimiter ---,--- Line Ending ---,--- Encoding ---,--- Parsing Standard ---
"set your preferred delimiter,",Can be one or more characters.,Affects file save only.,"To see supported encodings, call the",The current options include )x"
    R"x(
"character encoding, and","No delimiter: Type ""(none)"".","Windows (CR LF): ""Windows""","""List Character Encodings"" command","""RFC 4180"", ""Delimiter Only"", "
parsing standard. You may add,"Auto-detect: Type ""(auto)"".","Mac/Linux (LF): ""Unix""",and select one to copy to the clipboard.,"""All Quotes"", and ""Sparse Quotes""."
your own extensions.,"Tab: Type ""\t"" or ""tab"".","Current Platform: ""(platform)""",Default encoding: UTF-8,Default standard: RFC 4180.
"No extension: Type ""(none)"".","Space: Type ""\s"" or ""space"".",Default ending: current platform,,
,Default delimiter: auto-detect,,,
,"if enabled. Otherwise, comma.",,,
,,,,
Extension,Delimiter,Line Ending,Encoding,Parsing Standard
csv,(auto),Unix,UTF-8,RFC 4180
tsv,\t,Unix,UTF-8,RFC 4180
tab,\t,Unix,UTF-8,RFC 4180
dsv,;,Unix,UTF-8,RFC 4180
psv,|,Unix,UTF-8,RFC 4180
)x";

class PreferenceFilesTest : public testing::Test {
protected:
    PreferenceFilesTest() {
        QDir().mkpath(Utilities::getAppDataLocation());
        commands.populate(nullptr);
    }

    QString write(QString const& name, QByteArray const& bytes) const { return directory.write(name, bytes); }
    QByteArray read(QString const& name) const { return directory.read(name); }

    QList<QByteArray> lines(QString const& path) const { return read(path).split('\n'); }

    std::vector<ExtensionData> extensions(QByteArray const& rows) const {
        write(Utilities::getExtensionsFilepath(), rows);
        TableModel model;
        model.loadCSV(Utilities::getExtensionsFilepath(), false, false, ",", ",", EncodingType::Utf8,
                      ParsingStandard::Rfc4180);
        return PreferenceFiles::userExtensions(model);
    }

    void addShortcuts(QByteArray const& rows) {
        write(Utilities::getShortcutsFilepath(), rows);
        ASSERT_TRUE(PreferenceFiles::updateShortcutsFile(commands));
    }

    TestFolder directory;
    bool const isolated = qputenv("XDG_DATA_HOME", directory.path().toLocal8Bit());
    QString const settingsPath = Utilities::getSettingsFilepath();
    QString const shortcutsPath = Utilities::getShortcutsFilepath();
    QString const extensionsPath = Utilities::getExtensionsFilepath();
    Commands commands;
};

} // namespace

TEST_F(PreferenceFilesTest, SettingsStandBelowTheirInstructionsWithOnlyChangedValuesFilledIn) {
    Settings settings;
    settings.setValue(SettingType::Theme, QString("DARK"));
    settings.setValue(SettingType::FirstRowIndex, -5);
    ASSERT_TRUE(PreferenceFiles::makeSettingsFile(settings));
    QList<QByteArray> const written = lines(settingsPath);
    QList<QByteArray> const expected{
        R"("Place your desired setting in the ""User Value"" column.",,,,)",
        R"("If ""User Value"" is blank or invalid, the default value will be used.",,,,)",
        R"("The ""Type"" and ""Default Value"" columns are for informative",,,,)",
        R"(purposes only. Changing them won't make any difference.,,,,)",
        R"(Scope: Global applies immediately to the whole program.,,,,)",
        R"(Table scope Settings are defaults for newly opened files.,,,,)",
        R"(,,,,!!! Make changes below !!!)",
        R"(Setting,Scope,Type,Default Value,User Value)",
        R"(Auto-Fit Column Width,Table,true|false,true,)",
    };
    EXPECT_EQ(written.mid(0, expected.size()), expected);
    EXPECT_EQ(written.size(), 8 + 47 + 1);
    EXPECT_TRUE(written.contains("First Row Index,Table,integer,0,-5"));
    EXPECT_TRUE(written.contains("Theme,Global,theme,dark,"));
    EXPECT_TRUE(written.contains("Behavior When File Is Changed Externally,Global,refresh|ignore|ask,refresh,"));
    EXPECT_TRUE(written.contains("Number of Buffer Rows,Global,integer >= 0,2,"));
    EXPECT_TRUE(PreferenceFiles::testSettingsFileValidity());
}

TEST_F(PreferenceFilesTest, ShortcutsTellDefaultsChangesAndRemovals) {
    commands.setShortcut("Close File", QString());
    commands.setShortcut("Save File", "ctrl+alt+s|f9");
    ASSERT_TRUE(PreferenceFiles::makeShortcutsFile(commands));
    QList<QByteArray> const written = lines(shortcutsPath);
    QList<QByteArray> const expected{
        R"("Place your desired shortcuts in the ""User Shortcut"" column.",,)",
        R"("If ""User Shortcut"" is blank or invalid,",,)",
        R"(the default shortcut will be used.,,)",
        R"x("To have no shortcuts for a command, use ""(none)"".",,)x",
        R"("If you want multiple shortcuts for one command,",,)",
        R"(separate them with a bar (|).,,)",
        R"("If you use the same shortcut for multiple commands,",,)",
        R"(it may not work for any of them.,,)",
        R"("The ""Default Shortcut"" column is for informative",,)",
        R"(purposes only. Changing it won't make any difference.,,)",
        R"(,,!!! Make changes below !!!)",
        R"(Command,Default Shortcut,User Shortcut)",
    };
    EXPECT_EQ(written.mid(0, expected.size()), expected);
    EXPECT_EQ(written.size(), qsizetype(12 + commands.sorted().size() + 1));
    EXPECT_TRUE(written.contains("Close File,ctrl+w,(none)"));
    EXPECT_TRUE(written.contains("Save File,ctrl+s,ctrl+alt+s|f9"));
    EXPECT_TRUE(written.contains("Undo,ctrl+z,"));
    EXPECT_TRUE(written.contains("Upper Case,\"ctrl+k,ctrl+u\","));
    EXPECT_TRUE(written.contains("About,(none),"));
    EXPECT_TRUE(PreferenceFiles::testShortcutsFileValidity());
}

TEST_F(PreferenceFilesTest, ExtensionsStandBelowTheirBlocksOfInstructions) {
    ASSERT_TRUE(PreferenceFiles::makeExtensionsFile());
    EXPECT_EQ(read(extensionsPath), newExtensionsFile);
    EXPECT_TRUE(PreferenceFiles::testExtensionsFileValidity());
    TableModel model;
    model.loadCSV(extensionsPath, false, false, ",", ",", EncodingType::Utf8, ParsingStandard::Rfc4180);
    std::vector<ExtensionData> const rows = PreferenceFiles::userExtensions(model);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[0].delimiter, "(auto)");
    EXPECT_EQ(rows[0].saveDelimiter, ",");
    EXPECT_EQ(rows[1].saveDelimiter, "\t");
}

TEST_F(PreferenceFilesTest, AFileIsValidIfItsTitlesStandInOneOfItsFirstRows) {
    struct Case {
        QByteArray settings;
        bool valid;
    };
    Case const cases[] = {
        {"Setting,User Value\n", true},
        {"\xEF\xBB\xBFSetting,User Value\n", true},
        {"User Value,x,Setting\r\n", true},
        {QByteArray(99, '\n') + "Setting,User Value\n", true},
        {QByteArray(100, '\n') + "Setting,User Value\n", false},
        {QByteArray(99, ',') + "Setting,User Value\n", false},
        {"Setting,Value\n", false},
        {"Setting\nUser Value\n", false},
        {"", false},
        {QByteArray("\0\xFF\xFE\x01\"\n", 6), false},
    };
    for (Case const& entry : cases) {
        write(settingsPath, entry.settings);
        EXPECT_EQ(PreferenceFiles::testSettingsFileValidity(), entry.valid) << entry.settings.toStdString();
    }
    QFile::remove(settingsPath);
    EXPECT_FALSE(PreferenceFiles::testSettingsFileValidity());
    EXPECT_FALSE(PreferenceFiles::updateSettingsFile());
    EXPECT_FALSE(QFile::exists(settingsPath));
    // Reading what is no file must not wait for a writer.
    ASSERT_EQ(::mkfifo(QFile::encodeName(settingsPath).constData(), 0600), 0);
    EXPECT_FALSE(PreferenceFiles::testSettingsFileValidity());
}

TEST_F(PreferenceFilesTest, AnUpdateKeepsTheUsersValuesAndDropsWhatIsGone) {
    write(settingsPath,
          "Old text\nUser Value,Setting\nlight,Theme\n7,Dropped Setting\n0,Text Size\nSetting,User Value\n"
          "42,First Row Index\n2147483647,Number of Buffer Rows\n");
    ASSERT_TRUE(PreferenceFiles::updateSettingsFile());
    QList<QByteArray> written = lines(settingsPath);
    EXPECT_EQ(written.size(), 8 + 47 + 1);
    EXPECT_TRUE(written.contains("Theme,Global,theme,dark,light"));
    EXPECT_TRUE(written.contains("Text Size,Global,integer >= 1,13,"));
    EXPECT_TRUE(written.contains("First Row Index,Table,integer,0,42"));
    EXPECT_TRUE(written.contains("Number of Buffer Rows,Global,integer >= 0,2,2147483647"));

    addShortcuts("Command,User Shortcut\nSave File,f9\nDropped Command,f10\nUndo,(none)\n");
    written = lines(shortcutsPath);
    EXPECT_TRUE(written.contains("Save File,ctrl+s,f9"));
    EXPECT_TRUE(written.contains("Undo,ctrl+z,(none)"));
    EXPECT_FALSE(read(shortcutsPath).contains("f10"));

    write(extensionsPath, "Encoding,Extension,Delimiter,Line Ending,Parsing Standard\nnonsense,log,,,\n"
                          "KOI8-R,TAB,tab,Windows,All Quotes\n");
    ASSERT_TRUE(PreferenceFiles::updateExtensionsFile());
    written = lines(extensionsPath);
    EXPECT_EQ(
        written.mid(10),
        (QList<QByteArray>{"log,\",\",Unix,UTF-8,RFC 4180",
                           "tab,\\t,Windows," + Utilities::convertEncodingTypeToString(EncodingType::Koi8R).toUtf8() +
                               ",All Quotes",
                           ""}));

    write(settingsPath, "no titles\n");
    EXPECT_TRUE(PreferenceFiles::updateSettingsFile());
    EXPECT_TRUE(PreferenceFiles::testSettingsFileValidity());
}

TEST_F(PreferenceFilesTest, OneSettingIsWrittenIntoItsCellAndTheDefaultEmptiesIt) {
    write(settingsPath, "mine\nUser Value,Setting,Note\n,Show Tab Bar,keep\n,Theme,me\n");
    Settings settings;
    settings.setValue(SettingType::Theme, QString("Dark"));
    settings.toggleBoolValue(SettingType::ShowTabBar);
    ASSERT_EQ(PreferenceFiles::writeSettingToFile(settings, SettingType::ShowTabBar), QString());
    EXPECT_EQ(read(settingsPath), "mine,,\nUser Value,Setting,Note\nfalse,Show Tab Bar,keep\n,Theme,me\n");
    settings.toggleBoolValue(SettingType::ShowTabBar);
    ASSERT_EQ(PreferenceFiles::writeSettingToFile(settings, SettingType::ShowTabBar), QString());
    EXPECT_EQ(read(settingsPath), "mine,,\nUser Value,Setting,Note\n,Show Tab Bar,keep\n,Theme,me\n");
    EXPECT_EQ(PreferenceFiles::writeSettingToFile(settings, SettingType::Font), QString());
    EXPECT_FALSE(read(settingsPath).contains("Liberation"));
    EXPECT_EQ(PreferenceFiles::writeSettingToFile(settings, SettingType::Theme), QString());
    EXPECT_TRUE(read(settingsPath).endsWith("\n,Theme,me\n")) << "the default in other letters is the default";
    QFile::remove(settingsPath);
    settings.setValue(SettingType::TextSize, 15);
    EXPECT_EQ(PreferenceFiles::writeSettingToFile(settings, SettingType::Theme), QString());
    EXPECT_TRUE(lines(settingsPath).contains("Text Size,Global,integer >= 1,13,15"));
    QFile::remove(settingsPath);
    ASSERT_TRUE(QDir().mkpath(settingsPath));
    EXPECT_NE(PreferenceFiles::writeSettingToFile(settings, SettingType::Theme), QString());
}

TEST_F(PreferenceFilesTest, UserShortcutsReplaceRemoveAndFallBack) {
    commands.setShortcut("Redo", "f1");
    addShortcuts("User Shortcut,,Command\nctrl+alt+s|f9,,Save File\n(none),,Undo\n,,Redo\nno key,,Close File\n");
    EXPECT_EQ(commands.find("Save File")->action->shortcuts().size(), 2);
    EXPECT_TRUE(commands.find("Undo")->action->shortcuts().isEmpty());
    EXPECT_EQ(commands.find("Redo")->shortcut, "ctrl+y");
    EXPECT_TRUE(commands.find("Close File")->action->shortcuts().isEmpty());
    EXPECT_EQ(commands.find("Select Entire Table")->shortcut, commands.find("Select Entire Table")->defaultShortcut);
}

TEST_F(PreferenceFilesTest, RowsOfExtensionsAreReadAsTheirInstructionsSay) {
    QByteArray const titles = "Extension,Delimiter,Delimiter (Save),Line Ending,Encoding,Parsing Standard\n";
    std::vector<ExtensionData> const rows = extensions(titles + " .CSV ,TAB,;,Windows,UTF-16LE,sparse quotes\n"
                                                                ",x,x,,,\n"
                                                                "a,\\s,,(platform),,\n"
                                                                "b,\"\"\"\",,,,\n"
                                                                "c,(none),,,,\n"
                                                                "d,(auto),,,,\n"
                                                                "e,||,\\t,?,?,?\n");
    struct Case {
        char const* extension;
        char const* delimiter;
        char const* saveDelimiter;
    };
    Case const cases[] = {{"csv", "\t", ";"},   {"a", " ", " "},   {"b", ",", ","},   {"c", "(none)", "(none)"},
                          {"d", "(auto)", ","}, {"e", "||", "\t"}, {"tsv", "\t", ","}};
    ASSERT_EQ(rows.size(), std::size(cases));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].extension, cases[i].extension);
        EXPECT_EQ(rows[i].delimiter, cases[i].delimiter) << cases[i].extension;
        EXPECT_EQ(rows[i].saveDelimiter, cases[i].saveDelimiter) << cases[i].extension;
        bool const first = i == 0;
        EXPECT_EQ(rows[i].lineEnding, first ? LineEndingType::Windows : LineEndingType::Unix);
        EXPECT_EQ(rows[i].encoding, first ? EncodingType::Utf16LE : EncodingType::Utf8);
        EXPECT_EQ(rows[i].parsingStandard, first ? ParsingStandard::SparseQuotes : ParsingStandard::Rfc4180);
    }
    std::vector<ExtensionData> const none = extensions("not the titles\n");
    ASSERT_EQ(none.size(), 2U);
    EXPECT_EQ(none[0].extension, "csv");
    EXPECT_EQ(none[0].delimiter, ",");
}

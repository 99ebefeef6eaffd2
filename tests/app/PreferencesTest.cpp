#include "app/PreferenceStartup.h"
#include "app/TabBar.h"
#include "app/files/ConfigFile.h"
#include "commands/PreferenceFiles.h"
#include "storage/AtomicFileWriter.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/HeldReads.h"
#include "view/FrozenTableView.h"

#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QSettings>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int patience = 20000;

class PreferencesTest : public testing::Test {
protected:
    PreferencesTest() { QCoreApplication::setApplicationVersion("2.4.4"); }

    static void replace(QString const& path, QByteArray const& bytes) {
        AtomicFileWriter file(path);
        ASSERT_TRUE(file.open() && file.write(std::string_view(bytes.constData(), bytes.size())) && file.commit());
    }

    QString write(QString const& name, QByteArray const& bytes) const { return directory.write(name, bytes); }
    QByteArray read(QString const& name) const { return directory.read(name); }

    TestFolder directory;
    OwnPreferences preferences;
    QString const location = Utilities::getAppDataLocation();
    QString const settingsPath = Utilities::getSettingsFilepath();
    QString const shortcutsPath = Utilities::getShortcutsFilepath();
    QString const extensionsPath = Utilities::getExtensionsFilepath();
};

/// A window with the files of a new user.
class PreferenceWindowTest : public PreferencesTest {
protected:
    PreferenceWindowTest() : startup(location), window(std::make_unique<MainWindow>()) {}

    QString themeName() const { return window->getSettings().getTheme().getName(); }
    QByteArray settingsRow(QByteArray const& name) const {
        for (QByteArray const& line : read(settingsPath).split('\n')) {
            if (line.startsWith(name + ','))
                return line.mid(line.lastIndexOf(',') + 1);
        }
        return "no row";
    }

    PreferenceStartup startup;
    std::unique_ptr<MainWindow> window;
};

} // namespace

TEST_F(PreferencesTest, ANewUserGetsAllFilesAndTheNextStartLeavesThemAlone) {
    QDir(location).removeRecursively();
    EXPECT_TRUE(PreferenceStartup(location).isFirstInstall());
    EXPECT_TRUE(PreferenceFiles::testSettingsFileValidity());
    EXPECT_TRUE(PreferenceFiles::testShortcutsFileValidity());
    EXPECT_TRUE(PreferenceFiles::testExtensionsFileValidity());
    write(settingsPath, "Setting,User Value,mine\n");
    EXPECT_FALSE(PreferenceStartup(location).isFirstInstall());
    EXPECT_EQ(read(settingsPath), "Setting,User Value,mine\n");
}

TEST_F(PreferencesTest, DamagedFilesAreReplacedAndWhatMayBeSomethingElseStays) {
    PreferenceStartup const first(location);
    QByteArray const fresh = read(shortcutsPath);
    int copies = 0;
    for (QByteArray const& damage :
         {QByteArray(), QByteArray(10000, '\0'), QByteArray("\"unclosed\n"), QByteArray("Command;User Shortcut\n")}) {
        write(shortcutsPath, damage);
        write(settingsPath, "Setting,User Value\nTheme,light\n");
        PreferenceStartup const start(location);
        EXPECT_EQ(read(shortcutsPath), fresh);
        ++copies;
        QString const number = copies == 1 ? QString() : QString(" %1").arg(copies);
        EXPECT_EQ(read(location + "/Shortcuts (User) - damaged" + number + ".csv"), damage);
        EXPECT_EQ(MainWindow().getSettings().getTheme().getName(), "Light");
    }
    QFile::remove(settingsPath);
    ASSERT_TRUE(QDir().mkpath(settingsPath + "/kept"));
    QFile::remove(shortcutsPath);
    ASSERT_EQ(::mkfifo(QFile::encodeName(shortcutsPath).constData(), 0600), 0);
    QFile huge(extensionsPath);
    ASSERT_TRUE(huge.resize(qint64(1) << 33));
    PreferenceStartup(location).update(MainWindow().getCommands());
    MainWindow const window;
    EXPECT_EQ(window.getSettings().getTheme().getName(), "Dark");
    EXPECT_EQ(window.getExtensions().size(), 5U);
    EXPECT_TRUE(QDir(settingsPath + "/kept").exists());
    EXPECT_TRUE(QFile::exists(shortcutsPath));
    EXPECT_EQ(huge.size(), qint64(1) << 33);
}

TEST_F(PreferencesTest, ALinkThatLeadsNowhereIsNoMissingFile) {
    QString const target = directory.filePath("on another disk.csv");
    for (QString const& path : {settingsPath, shortcutsPath, extensionsPath})
        ASSERT_TRUE(QFile::link(target, path));
    PreferenceStartup start(location);
    start.createMissingFiles();
    EXPECT_FALSE(PreferenceFiles::writeSettingToFile(Settings(), SettingType::Theme).isEmpty());
    EXPECT_FALSE(QFile::exists(target));
    for (QString const& path : {settingsPath, shortcutsPath, extensionsPath})
        EXPECT_EQ(QFile::symLinkTarget(path), target);
}

TEST_F(PreferencesTest, ADiskThatFailsToReadCostsNoPreferences) {
    QByteArray const mine = "Setting,User Value\nTheme,light\n";
    for (int good = 0; good < 4; ++good) {
        PreferenceStartup const first(location);
        write(settingsPath, mine);
        write(shortcutsPath, "Command,User Shortcut\nSave File,f9\n");
        write(extensionsPath, "mine alone");
        HeldReads reads;
        reads.failAfter(good);
        PreferenceStartup start(location);
        start.update(MainWindow().getCommands());
        EXPECT_FALSE(PreferenceFiles::writeSettingToFile(Settings(), SettingType::Theme).isEmpty());
        reads.failAfter(-1);
        EXPECT_TRUE(read(settingsPath).contains("light")) << good;
        EXPECT_TRUE(read(shortcutsPath).contains("f9")) << good;
        EXPECT_TRUE(good > 2 || read(extensionsPath) == "mine alone") << good;
    }
}

TEST_F(PreferencesTest, WhatIsRememberedOutlivesADiskThatFails) {
    QString const path = location + "/Gridwright.ini";
    ConfigFile const file(path);
    EXPECT_TRUE(file.write("save_dialect/csv", "keep"));
    EXPECT_TRUE(file.write("main/preference_file_version", "1"));
    EXPECT_EQ(QSettings(path, QSettings::IniFormat).value("save_dialect/csv"), "keep");
    QByteArray const before = read(path);
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkdir(path)); // there, and nothing that can be read
    EXPECT_FALSE(file.read("save_dialect/csv"));
    EXPECT_FALSE(file.write("save_dialect/csv", "set"));
    EXPECT_FALSE(PreferenceStartup(location).isVersionChanged());
    ASSERT_TRUE(QDir().rmdir(path));
    write(path, before);
    EXPECT_EQ(file.read("save_dialect/csv"), QVariant("keep"));
    EXPECT_EQ(file.read("save_dialect/tsv"), QVariant());
    QDir().mkpath(location + "/Gridwright/mine");
    PreferenceStartup const start(location);
    EXPECT_TRUE(QFile::exists(location + "/Gridwright/mine"));
}

TEST_F(PreferencesTest, FilesOneFolderTooDeepMoveUpAndOtherVersionsFilesAreBroughtUpToDate) {
    QDir().mkpath(location + "/Gridwright");
    write(location + "/Gridwright/Settings (User).csv", "Setting,User Value\nText Size,20\n");
    write(settingsPath, "old");
    PreferenceStartup start(location);
    EXPECT_FALSE(QDir(location + "/Gridwright").exists());
    EXPECT_EQ(read(settingsPath), "Setting,User Value\nText Size,20\n");
    EXPECT_TRUE(start.isVersionChanged());
    MainWindow window;
    start.update(window.getCommands());
    EXPECT_TRUE(read(settingsPath).contains("\nText Size,Global,integer >= 1,13,20\n"));
    EXPECT_EQ(QSettings(location + "/Gridwright.ini", QSettings::IniFormat).value("main/preference_file_version"),
              "2.4.4");
    EXPECT_FALSE(PreferenceStartup(location).isVersionChanged());
}

TEST_F(PreferenceWindowTest, ChangesOfTheFilesReachEveryWindowWhicheverWayTheyAreSaved) {
    MainWindow const second;
    write(settingsPath, "Setting,User Value\nTheme,light\nRepresent Columns as Letters,true\nShow Tab Bar,false\n");
    auto const bothAre = [&](QString const& name) {
        return QTest::qWaitFor([&] { return themeName() == name && second.getSettings().getTheme().getName() == name; },
                               patience);
    };
    EXPECT_TRUE(bothAre("Light"));
    TableModel const& model = *window->getActiveTable()->tableModel();
    EXPECT_EQ(model.getTheme().getName(), "Light");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "B");
    EXPECT_TRUE(window->findChild<TabBar*>()->isHidden());
    for (QByteArray const theme : {"dracula", "solarized dark", "solarized light"}) {
        replace(settingsPath, "Setting,User Value\nTheme," + theme + "\n");
        EXPECT_TRUE(bothAre(Theme::convertStringToTheme(theme).getName()));
    }
    EXPECT_FALSE(window->findChild<TabBar*>()->isHidden());
    QFile::remove(settingsPath);
    replace(settingsPath, "Setting,User Value\nTheme,\n");
    EXPECT_TRUE(bothAre("Dark"));
}

TEST_F(PreferenceWindowTest, ShortcutsAndExtensionsApplyAtOnce) {
    replace(shortcutsPath, "Command,User Shortcut\nSave File,f9\n");
    QAction const* const save = window->getCommands().find("Save File")->action;
    EXPECT_TRUE(QTest::qWaitFor([&] { return save->shortcut() == QKeySequence("F9"); }, patience));
    replace(extensionsPath, "Extension,Delimiter,Line Ending,Encoding,Parsing Standard\nlog,(none),,,\ndat,^,,,\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->getExtensions().size() == 4; }, patience));
    window->openFile(write("a.dat", "a^b,c\n"));
    EXPECT_EQ(window->getActiveTable()->tableModel()->columnCountRaw(), 2);
    window->openFile(write("a.log", "a,(none)b\n"));
    EXPECT_EQ(window->getActiveTable()->tableModel()->columnCountRaw(), 1);
    EXPECT_EQ(window->getStatusBar()->text(StatusBar::Label::Delimiter), "Delimiter: (none)");
}

namespace {

/// What shows that a setting is in force in a table, or in its window.
struct Effect {
    char const* setting;
    QByteArray other; ///< than the default
    QVariant (*in)(TableView const& table);
};

template <auto get>
QVariant of(TableView const& table) {
    if constexpr (std::is_invocable_v<decltype(get), TableView const&>)
        return std::invoke(get, table);
    else if constexpr (std::is_invocable_v<decltype(get), TableModel const&>)
        return std::invoke(get, *table.tableModel());
    else
        return std::invoke(get, table.tableModel()->getCellColorOptions());
}

template <SettingType type>
QVariant kept(TableView const& table) {
    return table.getSettings().get(type).value;
}

template <Qt::Orientation orientation>
QVariant label(TableView const& table) {
    QString const text = table.tableModel()->headerData(0, orientation).toString();
    return text == QLatin1String("A") ? QStringLiteral("0") : text;
}

template <auto find>
QVariant isShown(TableView const& table) {
    return !std::invoke(find, table)->isHidden();
}

Effect const effects[] = {
    {"Auto-Fit Column Width", "false", of<&TableView::isAutoFitColWidth>},
    {"Auto-Fit Row Height", "true", of<&TableView::isAutoFitRowHeight>},
    {"Behavior When File Is Changed Externally", "ask", kept<SettingType::BehaviorWhenFileIsChangedExternally>},
    {"Case Sensitive Sorting", "false", of<&TableModel::getCaseSensitiveSorting>},
    {"Default Column Width", "91", of<&TableView::getDefaultColumnWidth>},
    {"Default Row Height", "37", of<&TableView::getDefaultRowHeight>},
    {"First Column Index", "4", label<Qt::Horizontal>},
    {"First Row Index", "-5", label<Qt::Vertical>},
    {"Freeze Header Columns", "true", isShown<&TableView::getVerticalFrozenView>},
    {"Freeze Header Rows", "false", isShown<&TableView::getHorizontalFrozenView>},
    {"Highlight Header Columns", "false", of<&CellColorOptions::highlightHeaderColumns>},
    {"Highlight Header Rows", "false", of<&CellColorOptions::highlightHeaderRows>},
    {"Highlight Main Selected Cell's Column", "true", of<&CellColorOptions::highlightMainCellColumn>},
    {"Highlight Main Selected Cell's Row", "true", of<&CellColorOptions::highlightMainCellRow>},
    {"Maximum Column Width for Auto-Fit", "500", of<&TableView::getMaximumColumnWidth>},
    {"Maximum Row Height for Auto-Fit", "200", of<&TableView::getMaximumRowHeight>},
    {"Minimum Number of Table Columns", "60", of<&TableModel::getMinNumTableCols>},
    {"Minimum Number of Table Rows", "70", of<&TableModel::getMinNumTableRows>},
    {"Number of Buffer Columns", "5", of<&TableModel::getNumBufferCols>},
    {"Number of Buffer Rows", "6", of<&TableModel::getNumBufferRows>},
    {"Number of Header Columns", "1", of<&CellColorOptions::headerCols>},
    {"Number of Header Rows", "2", of<&CellColorOptions::headerRows>},
    {"Online Map", "maps.example", kept<SettingType::OnlineMap>},
    {"Read-Only", "true", of<&TableView::isReadOnly>},
    {"Represent Columns as Letters", "true", of<&TableModel::getRepresentColumnsAsLetters>},
    {"Save After Each Edit", "true", of<&TableModel::getSaveAfterEachEdit>},
    {"Save With Trailing Delimiters", "false", of<&TableModel::getSaveWithTrailingDelimiters>},
    {"Search Engine", "search.example", kept<SettingType::SearchEngine>},
    {"Shade Every Other Column", "true", of<&CellColorOptions::shadeEveryOtherColumn>},
    {"Shade Every Other Row", "true", of<&CellColorOptions::shadeEveryOtherRow>},
    {"Show Column Labels", "false", isShown<&QTableView::horizontalHeader>},
    {"Show Row Labels", "false", isShown<&QTableView::verticalHeader>},
    {"Show Tab Bar", "false",
     [](auto& in) { return QVariant(in.window()->template findChild<TabBar*>()->isHidden()); }},
    {"Suppress Auto-Fit Warnings", "true", kept<SettingType::SuppressAutoFitWarnings>},
    {"Text Editor", "/bin/sh", kept<SettingType::TextEditor>},
    {"Text Size", "20", of<&TableModel::getTextSize>},
    {"Theme", "light", [](auto& in) { return QVariant(in.tableModel()->getTheme().getName()); }},
    {"UUID Type", "v7", kept<SettingType::UUIDType>},
};

/// What an open table keeps as it is.
QStringList const ofNewTables = {"Auto-Fit Column Width",
                                 "Auto-Fit Row Height",
                                 "First Column Index",
                                 "First Row Index",
                                 "Freeze Header Columns",
                                 "Freeze Header Rows",
                                 "Highlight Header Columns",
                                 "Highlight Header Rows",
                                 "Maximum Column Width for Auto-Fit",
                                 "Maximum Row Height for Auto-Fit",
                                 "Number of Header Columns",
                                 "Number of Header Rows",
                                 "Read-Only"};

QStringList seenIn(TableView const& table) {
    QStringList seen;
    for (Effect const& effect : effects)
        seen << effect.in(table).toString();
    return seen;
}

std::string settingsThatDiffer(QStringList const& before, QStringList const& after) {
    QStringList names;
    for (int i = 0; i < before.size(); ++i) {
        if (before[i] != after[i])
            names << effects[i].setting;
    }
    return names.join(", ").toStdString();
}

} // namespace

TEST_F(PreferenceWindowTest, EachSettingAloneHasItsEffectInOpenTablesNewOnesAndOtherWindowsOrInNewOnesOnly) {
    MainWindow second;
    auto const openIn = [this](MainWindow& in, QString const& name) -> TableView const& {
        in.openFile(write(name, "a,b\n1,2\n3,4\n"));
        return *in.getActiveTable();
    };
    TableView const& open = openIn(*window, "open.csv");
    TableView const& openElsewhere = openIn(second, "elsewhere.csv");
    auto const set = [this, &second](QByteArray const& setting) {
        replace(settingsPath, "Setting,User Value\n" + setting + '\n');
        for (MainWindow* const in : {window.get(), &second})
            in->onPreferenceChanged(settingsPath);
    };
    QStringList const defaults = seenIn(open);
    int number = 0;
    for (Effect const& effect : effects) {
        SCOPED_TRACE(effect.setting);
        bool const global = !ofNewTables.contains(effect.setting);
        set(QByteArray(effect.setting) + ',' + effect.other);
        std::string const it(effect.setting);
        EXPECT_EQ(settingsThatDiffer(defaults, seenIn(open)), global ? it : "");
        EXPECT_EQ(settingsThatDiffer(defaults, seenIn(openElsewhere)), global ? it : "");
        for (MainWindow* const in : {window.get(), &second}) {
            TableView const& added = openIn(*in, QString("new%1.csv").arg(++number));
            EXPECT_EQ(settingsThatDiffer(defaults, seenIn(added)), it);
            in->closeFile(in->getActiveTable());
        }
        set({});
        EXPECT_EQ(seenIn(open), defaults);
        EXPECT_EQ(seenIn(openElsewhere), defaults);
    }
}

TEST_F(PreferenceWindowTest, APreferenceFileIsEditedInTheGridAlsoWhereTablesAreReadOnly) {
    replace(settingsPath, "Read-Only,\nSetting,User Value\nFirst Row Index,5\nRead-Only,true\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->getSettings().getValueBool(SettingType::ReadOnly); }, patience));
    window->runCommand("Edit Settings");
    TableView& table = *window->getActiveTable();
    EXPECT_EQ(table.getFilepath(), settingsPath);
    EXPECT_FALSE(table.isReadOnly());
    table.tableModel()->setDataRaw(table.tableModel()->index(3, 0), "Theme");
    table.tableModel()->setDataRaw(table.tableModel()->index(3, 1), "Light");
    EXPECT_TRUE(window->saveFile(&table));
    EXPECT_TRUE(QTest::qWaitFor([&] { return themeName() == "Light"; }, patience));
    QFile::remove(shortcutsPath);
    window->runCommand("Edit Keyboard Shortcuts");
    EXPECT_EQ(window->getActiveTable()->getFilepath(), shortcutsPath);
}

TEST_F(PreferenceWindowTest, AnEditableTableBecomesReadOnlyAndBackAndUnsavedChangesAreAskedAbout) {
    QString const path = write("a.csv", "a,b\n");
    window->openFile(path);
    TableView& table = *window->getActiveTable();
    auto const mode = [&] { return window->getStatusBar()->text(StatusBar::Label::Mode); };
    auto const loaded = [&] { return QTest::qWaitFor([&] { return !table.isLoading(); }, patience); };
    table.pushUndoCommand(new QUndoCommand);
    MsgBoxAnswers box;
    box.next("Cancel");
    window->runCommand("Toggle Read-Only");
    EXPECT_EQ(mode(), "Editable");
    box.next("Discard");
    window->runCommand("Toggle Read-Only");
    EXPECT_TRUE(loaded());
    EXPECT_EQ(mode(), "Read-Only");
    EXPECT_FALSE(window->getCommands().find("Clear Cell Contents")->action->isEnabled());
    window->runCommand("Sort Selected Cells Vertically - Ascending");
    EXPECT_NE(window->getStatusBar()->currentMessage(), "");
    window->runCommand("Toggle Read-Only");
    EXPECT_TRUE(loaded());
    EXPECT_EQ(mode(), "Editable");
    EXPECT_EQ(window->getStatusBar()->currentMessage(), "");
    EXPECT_EQ(table.tableModel()->dataRaw(table.tableModel()->index(0, 1)).toString(), "b");
}

TEST_F(PreferencesTest, NoNumberInTheSettingsFileKeepsAWindowFromOpening) {
    write(directory.filePath("a.csv"), "a,b\n1,2\n3,4\n");
    MsgBoxAnswers box;
    Settings const settings;
    for (Setting const& setting : settings.sorted()) {
        bool const number = setting.dataType == SettingDataType::Integer ||
                            setting.dataType == SettingDataType::IntegerFromZero ||
                            setting.dataType == SettingDataType::IntegerFromOne;
        for (QByteArray const text : {"2147483647", "-2147483648", "99999999999", "-1", "0", "abc", "\"\""}) {
            if (!setting.inFile || (!number && text != "2147483647"))
                continue;
            SCOPED_TRACE(setting.name.toStdString() + ' ' + text.toStdString());
            QByteArray const file = "Setting,User Value\n" + setting.name.toUtf8() + ',' + text + '\n';
            write(settingsPath, file);
            if (setting.type == SettingType::MinimumFileSizeForReadOnlyModeQueryMB && text == "0")
                box.next("Open in Edit Mode");
            MainWindow window;
            window.show();
            window.openFile(directory.filePath("a.csv"));
            QCoreApplication::processEvents();
            window.grab();
            EXPECT_EQ(read(settingsPath), file);
        }
    }
}

TEST_F(PreferenceWindowTest, AThemeThatIsUnknownIsToldOnceInTheStatusBarAndItsNameStaysInTheFile) {
    StatusBar const& bar = *window->getStatusBar();
    EXPECT_EQ(bar.currentMessage(), "");
    QByteArray const file = "Setting,User Value\nTheme,Pink\n";
    replace(settingsPath, file);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.currentMessage().contains("\"Pink\""); }, patience));
    EXPECT_EQ(themeName(), "Dark");
    window->getStatusBar()->clearMessage();
    window->onPreferenceChanged(settingsPath);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar.currentMessage(), "");
    EXPECT_EQ(read(settingsPath), file);
    MainWindow started;
    started.resize(3000, 500); // room for all labels
    started.show();
    StatusBar const& newBar = *started.getStatusBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return newBar.currentMessage().contains("\"Pink\""); }, patience));
    for (QLabel const* const label : newBar.findChildren<QLabel*>()) {
        if (label->accessibleName() == "Table size" || label->accessibleName() == "Selection") {
            EXPECT_FALSE(label->isVisible()) << "it would shine through the message";
        }
    }
    started.getStatusBar()->setText(StatusBar::Label::Selection, "another text");
    started.getStatusBar()->clearMessage();
    for (QLabel const* const label : newBar.findChildren<QLabel*>()) {
        if (label->accessibleName() == "Table size") {
            EXPECT_TRUE(label->isVisible());
        }
    }
}

TEST_F(PreferenceWindowTest, ASettingThatCannotBeWrittenIsToldStaysInForceAndIsWrittenLater) {
    MsgBoxAnswers box;
    QFile::remove(settingsPath);
    ASSERT_TRUE(QDir().mkpath(settingsPath));
    box.next("OK");
    window->runCommand("Toggle Shade Every Other Row");
    ASSERT_EQ(box.texts().size(), 1);
    EXPECT_TRUE(box.texts().first().startsWith("The setting \"Shade Every Other Row\" could not be written"));
    EXPECT_TRUE(window->getActiveTable()->getSettings().getValueBool(SettingType::ShadeEveryOtherRow));

    ASSERT_TRUE(QDir().rmdir(settingsPath));
    replace(settingsPath, "Setting,User Value\nShade Every Other Row,\nShow Tab Bar,\n");
    window->onPreferenceChanged(settingsPath);
    EXPECT_TRUE(window->getSettings().getValueBool(SettingType::ShadeEveryOtherRow));
    window->runCommand("Toggle Show Tab Bar");
    EXPECT_EQ(settingsRow("Shade Every Other Row"), "true");
    EXPECT_EQ(settingsRow("Show Tab Bar"), "false");
    window->runCommand("Toggle Show Tab Bar");
    EXPECT_EQ(settingsRow("Show Tab Bar"), "") << "the default again";
}

TEST_F(PreferenceWindowTest, ASettingWithoutARowInTheFileStaysInForceUntilTheFileHasOne) {
    replace(settingsPath, "Setting,User Value\nTheme,\n");
    window->onPreferenceChanged(settingsPath);
    window->runCommand("Toggle Shade Every Other Row");
    window->runCommand("Toggle Show Tab Bar");
    window->onPreferenceChanged(settingsPath);
    auto const inForce = [this](SettingType type) { return window->getSettings().getValueBool(type); };
    EXPECT_TRUE(inForce(SettingType::ShadeEveryOtherRow));
    EXPECT_FALSE(inForce(SettingType::ShowTabBar));
    replace(settingsPath, "Setting,User Value\nShow Tab Bar,\n");
    window->runCommand("Toggle Shade Every Other Row");
    window->runCommand("Toggle Shade Every Other Row");
    EXPECT_EQ(settingsRow("Show Tab Bar"), "false");
    window->onPreferenceChanged(settingsPath);
    EXPECT_TRUE(inForce(SettingType::ShadeEveryOtherRow));
    replace(settingsPath, "Setting,User Value\nShow Tab Bar,true\n");
    window->onPreferenceChanged(settingsPath);
    EXPECT_TRUE(inForce(SettingType::ShadeEveryOtherRow));
    EXPECT_TRUE(inForce(SettingType::ShowTabBar));
}

TEST_F(PreferenceWindowTest, AWarningThatIsNoLongerWantedIsSoAtTheNextStartToo) {
    replace(settingsPath, "Setting,User Value\nAuto-Fit Row Height,true\nSuppress Auto-Fit Warnings,\n");
    window->onPreferenceChanged(settingsPath);
    MsgBox::setAnswer([](MsgBox const& box) {
        box.checkBox()->setChecked(true);
        return box.buttons()[0];
    });
    window->openFile(write("a.csv", QByteArray("1\n").repeated(10001)));
    MsgBox::setAnswer({});
    EXPECT_EQ(settingsRow("Suppress Auto-Fit Warnings"), "true");
    EXPECT_TRUE(MainWindow().getSettings().getValueBool(SettingType::SuppressAutoFitWarnings));
    TableView::setSuppressAutoFitWarnings(false);
}

TEST_F(PreferenceWindowTest, ASettingThatTheUserPutIntoTheFileHimselfReplacesOneThatCouldNotBeWritten) {
    MsgBoxAnswers box;
    QFile::remove(settingsPath);
    ASSERT_TRUE(QDir().mkpath(settingsPath));
    box.next("OK");
    window->runCommand("Toggle Show Tab Bar");
    ASSERT_TRUE(QDir().rmdir(settingsPath));
    replace(settingsPath, "Setting,User Value\nTheme,light\nShow Tab Bar,true\n");
    window->onPreferenceChanged(settingsPath);
    EXPECT_FALSE(window->getSettings().getValueBool(SettingType::ShowTabBar));
    replace(settingsPath, "Setting,User Value\nText Size,20\nShow Tab Bar,false\n");
    window->onPreferenceChanged(settingsPath);
    replace(settingsPath, "Setting,User Value\nText Size,20\nShow Tab Bar,true\n");
    window->onPreferenceChanged(settingsPath);
    EXPECT_TRUE(window->getSettings().getValueBool(SettingType::ShowTabBar));
}

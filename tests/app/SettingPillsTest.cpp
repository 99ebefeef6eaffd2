// What the launcher says about the present value of each setting that a command changes.

#include "app/PaneView.h"
#include "app/launcher/OptionListWidget.h"
#include "app/launcher/OptionWidget.h"
#include "commands/PreferenceFiles.h"
#include "commands/SettingsTable.h"
#include "tests/app/WindowFixture.h"

#include <algorithm>

namespace {

constexpr int patience = 20000;

class SettingPills : public WindowFixture {
protected:
    SettingPills() {
        EXPECT_TRUE(PreferenceFiles::makeSettingsFile());
        open("a;b;c\n1;2;3\n");
        table()->setExtensionData({"csv", ";", "|"});
    }

    /// What the launcher shows beside a command.
    QString pill(QString const& command) {
        window.commandCommandLauncher();
        OptionListWidget const& list = *window.getPaneView()->getLauncher()->getOptionList();
        QString found = "not offered";
        for (int i = 0; i < list.shownCount(); ++i) {
            OptionData const& option = list.shownRow(i)->getData();
            if (option.text.endsWith(": " + command) || option.text == command)
                found = option.valuePill;
        }
        window.closeLauncher();
        return found;
    }

    /// Runs the command and, if it asks, answers.
    void change(QString const& command, QString const& answer) {
        window.runCommand(command);
        if (window.getPrompts()->isOpen())
            prompts.answer(window.getPrompts()->currentTitle(), answer);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !table()->isLoading(); }, patience));
    }
};

/// What is answered where a command asks, and the pill before and after it. Switches need none.
struct Answer {
    SettingType type;
    char const* before;
    char const* answer;
    char const* after;
};

constexpr Answer Answers[] = {
    {SettingType::DelimiterSave, "|", "tab", "tab"},
    {SettingType::DelimiterLoad, ";", "|", "|"},
    {SettingType::EncodingSave, "UTF-8", "UTF-16LE", "UTF-16LE"},
    {SettingType::EncodingLoad, "UTF-8", "KOI8-R (Russian)", "KOI8-R (Russian)"},
    {SettingType::LineEnding, "Unix", "Windows (CR LF)", "Windows"},
    {SettingType::ParsingStandardSave, "RFC 4180", "All Quotes", "All Quotes"},
    {SettingType::ParsingStandardLoad, "RFC 4180", "Sparse Quotes", "Sparse Quotes"},
    {SettingType::Theme, "Dark", "Solarized Light", "Solarized Light"},
    {SettingType::UUIDType, "v4", "Time-ordered (v7)", "v7"},
    {SettingType::BehaviorWhenFileIsChangedExternally, "refresh", "Ask", "ask"},
    {SettingType::TextEditor, "/usr/bin/gedit", "/bin/sh", "/bin/sh"},
    {SettingType::SearchEngine, "duckduckgo.com", "bing.com", "bing.com"},
    {SettingType::OnlineMap, "duckduckgo.com", "google.com", "google.com"},
};

} // namespace

TEST_F(SettingPills, EachShowsWhatItsCommandHasMadeOfTheSetting) {
    std::vector<Command> const commands = window.getCommands().sorted();
    int tried = 0;
    for (Command const& command : commands) {
        SettingType const type = command.setting;
        static constexpr SettingType notBuilt[] = {SettingType::EnableCheckForUpdates,
                                                   SettingType::DetectImportedFileTypeUponOpeningFile,
                                                   SettingType::ShowSideBar,
                                                   SettingType::ShowFileMetadata,
                                                   SettingType::ShowSideBarOpenFiles,
                                                   SettingType::ShowSideBarFolders,
                                                   SettingType::Font /* depends on the machine */};
        bool const skipped = std::find(std::begin(notBuilt), std::end(notBuilt), type) != std::end(notBuilt);
        if (type == SettingType::None || type == SettingType::ReadOnly || skipped)
            continue;
        SCOPED_TRACE(command.name.toStdString());
        Setting const defaults = Settings().get(type);
        auto const asked = std::find_if(std::begin(Answers), std::end(Answers),
                                        [type](Answer const& answer) { return answer.type == type; });
        QString const before = asked != std::end(Answers) ? asked->before : defaults.toString(defaults);
        bool const setByAReload = type == SettingType::DelimiterSave || type == SettingType::EncodingSave ||
                                  type == SettingType::ParsingStandardSave;
        if (!setByAReload) {
            EXPECT_EQ(pill(command.name), before);
        }
        ++tried;
        if (asked != std::end(Answers)) {
            change(command.name, asked->answer);
            EXPECT_EQ(pill(command.name), asked->after);
        } else if (defaults.dataType == SettingDataType::Bool) {
            Setting other = defaults;
            other.value = !defaults.value.toBool();
            change(command.name, {});
            EXPECT_EQ(pill(command.name), other.toString(other));
            change(command.name, {});
            EXPECT_EQ(pill(command.name), before);
        } else {
            change(command.name, "3");
            EXPECT_EQ(pill(command.name), "3");
        }
    }
    EXPECT_EQ(tried, 50);
}

TEST_F(SettingPills, ATableShowsItsOwnAndTheModeFollowsItsSwitch) {
    TableView* const first = table();
    change("Set First Column Index", "7");
    window.runCommand("Toggle Freeze Header Rows");
    window.runCommand("Toggle Represent Columns as Letters");
    EXPECT_EQ(pill("Set First Column Index"), "7") << "it is kept aside while columns are letters";
    window.runCommand("Toggle Represent Columns as Letters");
    open("a,b\n1,2\n", "b.csv");
    EXPECT_EQ(pill("Set First Column Index"), "0");
    EXPECT_EQ(pill("Toggle Freeze Header Rows"), "Frozen");
    EXPECT_EQ(pill("Set Delimiter for File Save"), ",");
    window.setActiveTable(first);
    EXPECT_EQ(pill("Set First Column Index"), "7");
    EXPECT_EQ(pill("Toggle Freeze Header Rows"), "Not Frozen");
    EXPECT_EQ(pill("Set Delimiter for File Save"), "|");
    EXPECT_EQ(pill("Toggle Read-Only"), "Editable");
    change("Toggle Read-Only", {});
    EXPECT_EQ(pill("Toggle Read-Only"), "Read-only");
}

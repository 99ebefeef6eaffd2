#include "commands/Settings.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(Settings, AllFiftyNineStandByNameAndAreFoundByTypeAndName) {
    Settings const settings;
    ASSERT_EQ(settings.sorted().size(), 59U);
    EXPECT_TRUE(std::is_sorted(settings.sorted().begin(), settings.sorted().end(), sortSettingByName));
    for (Setting const& setting : settings.sorted()) {
        EXPECT_EQ(&settings.get(setting.type), &setting);
        EXPECT_EQ(settings.find(setting.name)->name, setting.name);
    }
    auto const inFile = [](Setting const& setting) { return setting.inFile; };
    EXPECT_EQ(std::count_if(settings.sorted().begin(), settings.sorted().end(), inFile), 47);
    EXPECT_FALSE(settings.contains("theme"));
    EXPECT_EQ(settings.get(SettingType::DelimiterLoad).name, "Delimiter");
    EXPECT_EQ(settings.get(SettingType::DelimiterSave).name, "Delimiter");
}

TEST(Settings, TextOfEveryKindIsTakenIfItIsValid) {
    struct Case {
        char const* name;
        char const* text;
        char const* result; ///< as the file writes it
    };
    Case const cases[] = {
        {"Shade Every Other Row", " TRUE ", "true"},
        {"Shade Every Other Row", "yes", "false"},
        {"Show Tab Bar", "False", "false"},
        {"Minimum Number of Table Rows", "1", "1"},
        {"Minimum Number of Table Rows", "0", "50"},
        {"Number of Buffer Rows", "0", "0"},
        {"Number of Buffer Rows", "-1", "2"},
        {"First Row Index", "-5", "-5"},
        {"First Row Index", "0x10", "0"},
        {"Text Size", "99999999999", "13"},
        {"Text Size", "", "13"},
        {"Font", "Noto Sans", "Noto Sans"},
        {"Font", "", "Liberation Sans"},
        {"Theme", "Light", "Light"},
        {"UUID Type", " V7 ", "v7"},
        {"UUID Type", "v5", "v4"},
        {"Behavior When File Is Changed Externally", " Ask ", "ask"},
        {"Behavior When File Is Changed Externally", "never", "refresh"},
        {"Search Engine", "www.example.org/?q=", "www.example.org/?q="},
        {"Text Editor", "/bin/ed", "/bin/ed"},
        {"Encoding", "latin nonsense", "UTF-8"},
        {"Parsing Standard", "sparse quotes", "Sparse Quotes"},
        {"Encoding", " utf-16le ", "UTF-16LE"},
        {"Line Ending", "Windows", "Windows"},
    };
    for (Case const& entry : cases) {
        Settings settings;
        EXPECT_TRUE(settings.setFromString(entry.name, entry.text));
        EXPECT_EQ(settings.convertValueToStringForFile(settings.find(entry.name)->type), entry.result)
            << entry.name << " " << entry.text;
    }
    EXPECT_FALSE(Settings().setFromString("No Such Setting", "1"));
}

TEST(Settings, ANumberBeyondWhatThePromptsTakeIsTheLastGoodOneAndItsTextStays) {
    struct Case {
        SettingType type;
        char const* text;
        int inForce;
        char const* kept;
    };
    Case const cases[] = {
        {SettingType::NumberOfBufferRows, "2147483647", 1000000, "2147483647"},
        {SettingType::NumberOfBufferColumns, "1000001", 1000000, "1000001"},
        {SettingType::MinimumNumberOfTableColumns, "-2147483648", 50, "50"},
        {SettingType::FirstRowIndex, "-2147483648", -1000000, "-2147483648"},
        {SettingType::FirstColumnIndex, "2147483647", 1000000, "2147483647"},
        {SettingType::TextSize, "501", 500, "501"},
        {SettingType::DefaultRowHeight, "2001", 2000, "2001"},
        {SettingType::DefaultColumnWidth, "20000", 20000, "20000"},
    };
    for (Case const& entry : cases) {
        Settings settings;
        settings.setFromString(settings.get(entry.type).name, entry.text);
        EXPECT_EQ(settings.getValueInt(entry.type), entry.inForce) << entry.text;
        EXPECT_EQ(settings.displayText(entry.type), QString::number(entry.inForce)) << entry.text;
        EXPECT_EQ(settings.convertValueToStringForFile(entry.type), entry.kept);
    }
}

TEST(Settings, AThemeIsKnownInAnyCaseOfLettersAndAnUnknownOneKeepsItsName) {
    Settings settings;
    for (char const* const name : {"dark", "DARK", " Dark "}) {
        settings.setFromString("Theme", name);
        EXPECT_TRUE(settings.isThemeKnown() && settings.isDefault(SettingType::Theme)) << name;
        EXPECT_EQ(settings.displayText(SettingType::Theme), "Dark");
    }
    settings.setFromString("Theme", "solarized LIGHT");
    EXPECT_EQ(settings.displayText(SettingType::Theme), "Solarized Light");
    EXPECT_FALSE(settings.isDefault(SettingType::Theme));
    settings.setFromString("Theme", "Pink");
    EXPECT_FALSE(settings.isThemeKnown());
    EXPECT_EQ(settings.displayText(SettingType::Theme), "Dark");
    EXPECT_EQ(settings.convertValueToStringForFile(SettingType::Theme), "Pink");
}

TEST(Settings, ValuesAreReadInTheirTypesAndShownInTheirWords) {
    Settings settings;
    EXPECT_EQ(settings.getValueRefreshBehavior(SettingType::BehaviorWhenFileIsChangedExternally),
              RefreshBehavior::Refresh);
    EXPECT_EQ(settings.getValueLineEnding(SettingType::LineEnding), LineEndingType::Unix);
    EXPECT_EQ(settings.getTheme().getName(), "Dark");
    EXPECT_TRUE(settings.getValueBool(SettingType::TextSize));
    EXPECT_EQ(settings.displayText(SettingType::ReadOnly), "Editable");
    settings.toggleBoolValue(SettingType::ReadOnly);
    EXPECT_EQ(settings.displayText(SettingType::ReadOnly), "Read-only");
    EXPECT_EQ(settings.displayText(SettingType::MaximumColumnWidthForAutoFit), "800");
    settings.setValue(SettingType::EncodingLoad, EncodingType::Koi8R);
    EXPECT_EQ(settings.getValueEncoding(SettingType::EncodingLoad), EncodingType::Koi8R);
    EXPECT_EQ(settings.getValueEncoding(SettingType::EncodingSave), EncodingType::Utf8);
    settings.setValue(SettingType::Theme, QString("a theme that is gone"));
    EXPECT_EQ(settings.getTheme().getName(), "Dark");
    EXPECT_EQ(settings.convertDefaultValueToStringForFile(SettingType::Theme), "dark");
    EXPECT_EQ(Settings::convertSettingDataTypeToString(SettingDataType::IntegerFromOne), "integer >= 1");
    EXPECT_EQ(Settings::convertSettingDataTypeToString(static_cast<SettingDataType>(16)), "Undefined");
    EXPECT_EQ(Utilities::convertScopeToString(ScopeType::Table), "Table");
    EXPECT_EQ(Utilities::convertScopeToString(static_cast<ScopeType>(3)), "Invalid");
}

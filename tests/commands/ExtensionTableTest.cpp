#include "commands/ExtensionTable.h"

#include <gtest/gtest.h>

TEST(ExtensionTable, NewUsersFindFiveExtensionsAndAllOthersReadAsCommas) {
    struct Case {
        char const* path;
        char const* extension;
        char const* delimiter;
        char const* saveDelimiter;
    };
    Case const cases[] = {
        {"/data/a.csv", "csv", "(auto)", ","},
        {"/data/A.CSV", "CSV", "(auto)", ","},
        {"a.b.tsv", "tsv", "\t", "\t"},
        {"a.tab", "tab", "\t", "\t"},
        {"a.dsv", "dsv", ";", ";"},
        {"a.psv", "psv", "|", "|"},
        {"a.log", "log", ",", ","},
        {"roster", "(none)", ",", ","},
    };
    auto const rows = ExtensionTable::defaultRows();
    EXPECT_EQ(rows.size(), 5U);
    for (Case const& entry : cases) {
        QString const extension = ExtensionTable::extensionOfFile(entry.path);
        EXPECT_EQ(extension, entry.extension);
        ExtensionData const row = ExtensionTable::find(rows, extension);
        EXPECT_EQ(row.delimiter, entry.delimiter) << entry.path;
        EXPECT_EQ(row.saveDelimiter, entry.saveDelimiter) << entry.path;
        EXPECT_EQ(row.encoding, EncodingType::Utf8);
        EXPECT_EQ(row.parsingStandard, ParsingStandard::Rfc4180);
        EXPECT_EQ(row.lineEnding, LineEndingType::Unix);
    }
}

#include "core/DelimiterUtilities.h"

#include "tests/support/TestFolder.h"

using namespace Utilities;

TEST(DelimiterUtilities, ReadableFormsAndBack) {
    std::vector<QStringList> const cases = {// actual, short and long form, other spellings
                                            {"\t", "tab", "tab", "TAB", "\\t", "\\T"},
                                            {" ", "space", "space", "Space", "\\s"},
                                            {"\x1F", "Unit Separator", "Unit Separator", "unit separator"},
                                            {"", "(none)", "(none)", "none", "(None)"},
                                            {",", ",", "comma (,)"},
                                            {";", ";", "semi-colon (;)"},
                                            {"|", "|", "pipe (|)"},
                                            {":", ":", "colon (:)"},
                                            {".", ".", "period (.)"},
                                            {"-", "-", "dash (-)"},
                                            {"/", "/", "forward slash (/)"},
                                            {"\\", "\\", "back slash (\\)"},
                                            {"||", "||", "||"}};
    for (QStringList const& forms : cases) {
        EXPECT_EQ(convertDelimiterFromActualToShortReadable(forms[0]), forms[1]);
        EXPECT_EQ(convertDelimiterFromActualToLongReadable(forms[0]), forms[2]);
        for (QString const& readable : QStringList{forms[1]} + forms.mid(3)) {
            QString read = "unchanged";
            convertDelimiterFromShortReadableToActual(read, readable);
            EXPECT_EQ(read, forms[0]) << readable.toStdString();
        }
    }
    QString read = "unchanged";
    convertDelimiterFromShortReadableToActual(read, "(Auto)");
    EXPECT_EQ(read, "unchanged");
}

TEST(DelimiterUtilities, ValidityOptionsAndExtensions) {
    for (QString const valid : {",", " ", "\t", "ab", " a "})
        EXPECT_TRUE(delimiterValid(valid)) << valid.toStdString();
    for (QString const invalid : {"", "  ", " \t "})
        EXPECT_FALSE(delimiterValid(invalid)) << invalid.toStdString();

    EXPECT_EQ(getDelimiterOptions(true), QStringList({"(auto)"}) + getDelimiterOptions(false));
    EXPECT_EQ(getDelimiterOptions(false).join(' '), ", tab ; | space Unit Separator (none)");

    std::vector<std::array<QString, 3>> const cases = {{"csv", ",", "csv"}, {"tsv", "\t", "tsv"}, {"tab", "\t", "tsv"},
                                                       {"dsv", ";", "dsv"}, {"psv", "|", "psv"},  {"log", ",", "csv"}};
    for (auto const& [extension, delimiter, extensionBack] : cases) {
        EXPECT_EQ(getDefaultDelimiterFromExtension(extension), delimiter);
        EXPECT_EQ(getDefaultExtensionFromDelimiter(delimiter), extensionBack);
    }
    EXPECT_EQ(getDefaultExtensionFromDelimiter(":"), "txt");
}

TEST(DelimiterUtilities, DetectsTheDelimiterOfAFile) {
    // A tilde stands for the Unit Separator.
    std::vector<std::pair<QByteArray, QString>> const cases = {
        {"a;b;c\n1;2;3,4\n", ";"},
        {"a\tb,c", ","}, // ties go to the earlier candidate
        {"a;b|c", "|"},
        {"a^b~c", "^"},
        {"a~b~c^", "\x1F"},
        {"\"a,b,c\"\t1", ","}, // quotes do not matter
        {"no candidate", ","},
        {"", ","},
        {QByteArray(9999, 'x') + "|" + ";;", "|"}, // only 10000 bytes are looked at
    };
    TestFolder const folder;
    for (auto const& [content, delimiter] : cases) {
        QString const path = folder.write("sample", QByteArray(content).replace('~', '\x1F'));
        EXPECT_EQ(getDelimiterFromAutoDetect(path), delimiter) << content.left(40).toStdString();
    }
    EXPECT_EQ(getDelimiterFromAutoDetect(""), ",");
    EXPECT_EQ(getDelimiterFromAutoDetect(folder.filePath("missing")), ",");
}

TEST(DelimiterUtilities, DetectsTheDelimiterOfText) {
    std::vector<std::pair<QByteArray, QString>> const cases = {
        {"", "\t"},
        {"\n \r\n", "\t"},
        {"plain", "\t"},
        {"a,b\n1,2\n \n\n", ","},
        {"a,b;c\n1,2;3", ","},        // the earlier candidate wins a tie
        {"a,b;c\n1,2,3;4\n5;6", ";"}, // even counts beat high counts
        {"a|b\nc\nd", "\t"},          // agrees in less than half of the lines
        {"a|b\nc", "|"},              // in just half of them
        {"\ta;b\t\n\tc;d\t", ";"},    // white space around a line does not divide
        {"a;b\n\nc;d\n\n\n", ";"}};
    for (auto const& [text, delimiter] : cases)
        EXPECT_EQ(detectDelimiterInByteArray(text), delimiter) << text.toStdString();
}

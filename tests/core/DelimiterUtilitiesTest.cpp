#include "core/DelimiterUtilities.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Utilities;

TEST(DelimiterUtilities, ReadableFormsAndBack) {
    struct Case {
        QString actual;
        QString shortForm;
        QString longForm;
        QStringList otherSpellings;
    };
    std::vector<Case> const cases = {
        {"\t", "tab", "tab", {"TAB", "\\t", "\\T"}},
        {" ", "space", "space", {"Space", "\\s"}},
        {"\x1F", "Unit Separator", "Unit Separator", {"unit separator"}},
        {"", "(none)", "(none)", {"none", "(None)"}},
        {",", ",", "comma (,)", {}},
        {";", ";", "semi-colon (;)", {}},
        {"|", "|", "pipe (|)", {}},
        {":", ":", "colon (:)", {}},
        {".", ".", "period (.)", {}},
        {"-", "-", "dash (-)", {}},
        {"/", "/", "forward slash (/)", {}},
        {"\\", "\\", "back slash (\\)", {}},
        {"||", "||", "||", {}},
    };
    for (auto const& [actual, shortForm, longForm, otherSpellings] : cases) {
        EXPECT_EQ(convertDelimiterFromActualToShortReadable(actual), shortForm);
        EXPECT_EQ(convertDelimiterFromActualToLongReadable(actual), longForm);
        for (QString const& readable : otherSpellings + QStringList{shortForm}) {
            QString read = "unchanged";
            convertDelimiterFromShortReadableToActual(read, readable);
            EXPECT_EQ(read, actual) << readable.toStdString();
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
    std::vector<std::pair<QByteArray, QString>> const cases = {
        {"a;b;c\n1;2;3,4\n", ";"},
        {"a\tb,c", ","}, // ties go to the earlier candidate
        {"a;b|c", "|"},
        {"a^b\x1F"
         "c",
         "^"},
        {"a\x1F"
         "b\x1F"
         "c^",
         "\x1F"},
        {"\"a,b,c\"\t1", ","}, // quotes do not matter
        {"no candidate", ","},
        {"", ","},
        {QByteArray(9999, 'x') + "|" + ";;", "|"}, // only 10000 bytes are looked at
    };
    QTemporaryDir folder;
    QString const path = folder.filePath("sample");
    for (auto const& [content, delimiter] : cases) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
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
        {"a;b\n\nc;d\n\n\n", ";"},
    };
    for (auto const& [text, delimiter] : cases)
        EXPECT_EQ(detectDelimiterInByteArray(text), delimiter) << text.toStdString();
}

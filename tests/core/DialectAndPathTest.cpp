#include "core/DialectUtilities.h"
#include "core/PathUtilities.h"

#include <QCoreApplication>
#include <QScopeGuard>

using namespace Utilities;

TEST(DialectUtilities, ParsingStandards) {
    using enum ParsingStandard;
    std::vector<std::pair<QString, ParsingStandard>> const spellings = {{"RFC 4180", Rfc4180},
                                                                        {"rfc-4180", Rfc4180},
                                                                        {"Delimiter Only", DelimiterOnly},
                                                                        {"delimiter", DelimiterOnly},
                                                                        {"All Quotes", AllQuotes},
                                                                        {"SPARSE_quotes", SparseQuotes},
                                                                        {"ASCII Separated Values", AsciiSeparated},
                                                                        {"quotes", Invalid},
                                                                        {"", Invalid}};
    for (auto const& [text, standard] : spellings) {
        EXPECT_EQ(convertParsingStringToStandard(text), standard) << text.toStdString();
        EXPECT_EQ(parsingStandardValid(text), standard != Invalid) << text.toStdString();
    }
    QStringList names;
    for (int value = 0; value <= 6; ++value)
        names << convertParsingStandardToString(ParsingStandard(value));
    EXPECT_EQ(names.join(';'), "RFC 4180;Delimiter Only;All Quotes;Sparse Quotes;ASCII Separated Values;"
                               "Invalid standard;Invalid standard");
}

TEST(DialectUtilities, LineEndings) {
    using enum LineEndingType;
    std::vector<std::pair<QString, LineEndingType>> const spellings = {{"Windows (CR LF)", Windows},
                                                                       {"cr lf", Windows},
                                                                       {"CRLF", Windows},
                                                                       {"Mac/Linux (LF)", Unix},
                                                                       {"unix", Unix},
                                                                       {"lf", Unix},
                                                                       {"mac, not crlf", Unix},
                                                                       {"Record Separator", RecordSeparator},
                                                                       {"(platform)", Invalid},
                                                                       {"", Invalid}};
    for (auto const& [text, type] : spellings) {
        EXPECT_EQ(convertLineEndingStringToType(text), type) << text.toStdString();
        EXPECT_EQ(lineEndingValid(text), type != Invalid) << text.toStdString();
    }
    QStringList shortNames, technicalNames, longNames;
    for (int value = 0; value <= 5; ++value) {
        shortNames << convertLineEndingTypeToShortString(LineEndingType(value), false);
        technicalNames << convertLineEndingTypeToShortString(LineEndingType(value), true);
        longNames << convertLineEndingTypeToLongString(LineEndingType(value));
    }
    EXPECT_EQ(shortNames.join(';'), "Windows;Unix;Unix;Unix;Record Separator;");
    EXPECT_EQ(technicalNames.join(';'), "CRLF;LF;LF;LF;LF;LF");
    EXPECT_EQ(longNames.mid(0, 2).join(';'), "Windows (CR LF);Mac/Linux (LF)");
}

TEST(PathUtilities, FilesLieInTheFolderOfTheApplication) {
    QString const oldName = QCoreApplication::applicationName();
    auto const restore = qScopeGuard([&] { QCoreApplication::setApplicationName(oldName); });
    QCoreApplication::setApplicationName("Gridwright");
    QString const folder = getAppDataLocation();
    EXPECT_TRUE(folder.endsWith("/Gridwright")) << folder.toStdString();
    EXPECT_EQ(getSettingsFilepath(), folder + "/Settings (User).csv");
    EXPECT_EQ(getShortcutsFilepath(), folder + "/Shortcuts (User).csv");
    EXPECT_EQ(getExtensionsFilepath(), folder + "/File Extensions (User).csv");
    EXPECT_EQ(getTutorialFilepath(), folder + "/Tutorial (Fake Data).csv");
}

#include "app/CommandLine.h"

#include "app/FileOpening.h"
#include "app/HandOverMessage.h"
#include "app/WindowGeometry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <limits>
#include <sys/stat.h>

namespace {

void touch(QString const& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("a,b\n");
}

} // namespace

TEST(CommandLine, SwitchesTakeTheNextWordAndTheLastOneEndsTheWalk) {
    struct Case {
        QStringList arguments;
        int width, height, x, y;
    };
    Case const cases[] = {
        {{"gridwright"}, 0, 0, -1, -1},
        {{"gridwright", "-w", "800"}, 800, 0, -1, -1},
        {{"gridwright", "-w", "800", "-h", "600", "-x", "0", "-y", "-5"}, 800, 600, 0, -5},
        {{"gridwright", "-h", "many", "-w"}, 0, 0, -1, -1},
        {{"gridwright", "-x", "99999999999", "-y", "7"}, 0, 0, 0, 7},
        {{"gridwright", "-W", "800", "-z"}, 0, 0, -1, -1},
    };
    for (Case const& entry : cases) {
        CommandLine const line = CommandLine::parse(entry.arguments, "/");
        EXPECT_EQ(line.width, entry.width) << entry.arguments.join(' ').toStdString();
        EXPECT_EQ(line.height, entry.height);
        EXPECT_EQ(line.x, entry.x);
        EXPECT_EQ(line.y, entry.y);
        EXPECT_TRUE(line.files.isEmpty());
    }
}

TEST(CommandLine, RelativePathMeansTheSendersFileBeforeThatOfTheRunningProgram) {
    QTemporaryDir sender;
    QTemporaryDir running;
    for (QString const& path :
         {sender.filePath("same.csv"), running.filePath("same.csv"), running.filePath("own.csv")}) {
        touch(path);
    }
    QDir(sender.path()).mkdir("both");
    touch(running.filePath("both"));
    QString const before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(running.path()));
    CommandLine const line = CommandLine::parse({"gridwright", "same.csv", "own.csv", "both", ""}, sender.path());
    QDir::setCurrent(before);
    EXPECT_EQ(line.files, QStringList({sender.filePath("same.csv"), "own.csv"}));
    EXPECT_EQ(line.folders, QStringList(sender.filePath("both"))); // and an empty word names none
}

TEST(CommandLine, PathsAreFoundInTheSendersDirectoryAndMissingOnesAreDropped) {
    QTemporaryDir directory;
    touch(directory.filePath("a.csv"));
    QDir(directory.path()).mkdir("folder");
    ASSERT_TRUE(QFile::link(directory.filePath("gone"), directory.filePath("dangling.csv")));
    CommandLine const line =
        CommandLine::parse({"gridwright", "a.csv", "missing.csv", "folder", "dangling.csv", "-w"}, directory.path());
    EXPECT_EQ(line.files, QStringList({directory.filePath("a.csv"), directory.filePath("dangling.csv")}));
    EXPECT_EQ(line.folders, QStringList(directory.filePath("folder")));
}

TEST(HandOverMessage, CarriesDirectoryAndArgumentsAndSplitsANameThatHoldsTheSeparator) {
    QByteArray const message = "/home/maren<" + HandOverMessage::joinArguments({"gridwright", "é.csv", "a<b.csv"});
    HandOverMessage const parsed = HandOverMessage::parse(message);
    EXPECT_EQ(parsed.workingDirectory, "/home/maren");
    EXPECT_EQ(parsed.arguments, QStringList({"gridwright", "é.csv", "a", "b.csv"}));
    EXPECT_FALSE(parsed.asksForNewWindow());
    EXPECT_TRUE(HandOverMessage::parse("/home/maren<gridwright").asksForNewWindow());
}

TEST(WindowGeometry, TheDefaultWindowFillsMostOfASmallScreenAndEighteenInchesOfALargeOne) {
    EXPECT_EQ(defaultWindowSize(QRect(0, 0, 1280, 1000), 96.0), QSize(1216, 920));
    EXPECT_EQ(defaultWindowSize(QRect(0, 0, 3840, 2160), 96.0), QSize(1728, 1987));
    EXPECT_EQ(centredWindowPosition(QRect(100, 50, 1281, 1001), QSize(1000, 900)), QPoint(140, 50));
}

TEST(WindowGeometry, RequestsGoAsFarAsTheScreensDo) {
    int constexpr most = std::numeric_limits<int>::max();
    QRect const screens(-1280, 0, 2560, 800);
    QRect const current(100, 50, 640, 480);
    struct Case {
        int width, height, x, y;
        QRect expected;
    };
    Case const cases[] = {
        {0, 0, -1, -1, current},
        {700, 0, 0, -1, QRect(0, 50, 700, 480)},
        {0, 500, -1, 799, QRect(100, 799, 640, 500)},
        {most, most, -1, -1, QRect(100, 50, 2560, 800)},
        {0, 0, most, most, QRect(640, 320, 640, 480)},
        {most, most, most, most, QRect(0, 0, 2560, 800)},
    };
    for (Case const& entry : cases) {
        CommandLine line;
        line.width = entry.width;
        line.height = entry.height;
        line.x = entry.x;
        line.y = entry.y;
        EXPECT_EQ(requestedGeometry(current, line, screens), entry.expected) << entry.width << ' ' << entry.x;
    }
}

TEST(FileOpening, EverythingButAReadableRegularFileIsRefusedWithAReason) {
    QTemporaryDir directory;
    QString const fifo = directory.filePath("fifo");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    QFile::link(directory.filePath("gone"), directory.filePath("dangling"));
    touch(directory.filePath("a.csv"));
    EXPECT_EQ(reasonAgainstOpening(directory.filePath("a.csv")), QString());
    EXPECT_EQ(reasonAgainstOpening(directory.path()), "It is a folder.");
    EXPECT_EQ(reasonAgainstOpening(fifo), "It is not a regular file.");
    EXPECT_EQ(reasonAgainstOpening("/dev/zero"), "It is not a regular file.");
    EXPECT_EQ(reasonAgainstOpening(directory.filePath("dangling")), "It is a link to a file that does not exist.");
    EXPECT_EQ(reasonAgainstOpening(directory.filePath("none")), "The file does not exist.");
    QString const unnamed = QFile::decodeName(QFile::encodeName(directory.filePath("a")) + "\xFF.csv");
    EXPECT_EQ(reasonAgainstOpening(unnamed), "Its name is not valid text. Rename the file to open it.");
    EXPECT_EQ(CommandLine::parse({"gridwright", unnamed}, "/").files, QStringList(unnamed));
    EXPECT_TRUE(isWritableFile(directory.filePath("a.csv")));
    EXPECT_EQ(QFile(directory.filePath("a.csv")).size(), 4);
}

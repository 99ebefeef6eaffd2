#include "storage/AtomicFileWriter.h"

#include "storage/TemporaryNames.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

namespace {

/// Runs `work` in a process of its own and returns whether it came back with true.
bool trueInChild(std::function<bool()> const& work) {
    auto const child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Writes the file and returns why it failed, "" if it did not.
std::string replaceBy(QString const& path, std::string_view bytes) {
    AtomicFileWriter file(path);
    if (file.open() && file.write(bytes) && file.commit())
        return "";
    return file.errorString().isEmpty() ? "unknown" : file.errorString().toStdString();
}

class AtomicFile : public testing::Test {
protected:
    QString path(QString const& name) const { return folder.filePath(name); }
    QByteArray raw(QString const& name) const { return QFile::encodeName(path(name)); }
    std::string content(QString const& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
    }
    void make(QString const& name, QByteArray const& bytes, int mode = 0644) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        ASSERT_EQ(chmod(raw(name).constData(), mode), 0);
    }
    int modeOf(QString const& name) const {
        struct stat status = {};
        stat(raw(name).constData(), &status);
        return status.st_mode & 07777;
    }
    QStringList entries() const {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
};

TEST_F(AtomicFile, MakesNewFilesByTheUmaskAndKeepsTheModeOfOldOnes) {
    auto const old = umask(027);
    EXPECT_EQ(replaceBy(path("new"), "1"), "");
    umask(old);
    EXPECT_EQ(modeOf("new"), 0640);
    for (int const mode : {0600, 0644, 0751, 0666}) {
        make("old", "old", mode);
        EXPECT_EQ(replaceBy(path("old"), "new"), "");
        EXPECT_EQ(content("old"), "new");
        EXPECT_EQ(modeOf("old"), mode);
    }
}

TEST_F(AtomicFile, KeepsOwnerGroupAndUserAttributes) {
    make("a", "old");
    bool const attributes = setxattr(raw("a").constData(), "user.origin", "here", 4, 0) == 0;
    bool const root = geteuid() == 0 && chown(raw("a").constData(), 65534, 65533) == 0;
    EXPECT_EQ(replaceBy(path("a"), "new"), "");
    char value[8] = {};
    EXPECT_EQ(getxattr(raw("a").constData(), "user.origin", value, sizeof value), attributes ? 4 : -1);
    struct stat status = {};
    stat(raw("a").constData(), &status);
    EXPECT_EQ(status.st_uid, root ? 65534 : geteuid());
    EXPECT_EQ(status.st_gid, root ? 65533 : getegid());
}

TEST_F(AtomicFile, NothingHappensToTheTargetBeforeTheCommit) {
    make("a", "old");
    {
        AtomicFileWriter file(path("a"));
        EXPECT_TRUE(file.open() && file.write("new"));
        EXPECT_EQ(content("a"), "old");
    }
    EXPECT_EQ(content("a"), "old");
    EXPECT_EQ(entries(), QStringList("a"));
}

TEST_F(AtomicFile, FollowsSymbolicLinks) {
    QDir(folder.path()).mkdir("sub");
    make("sub/real", "old", 0604);
    ASSERT_EQ(symlink("sub/link1", raw("link2").constData()), 0);
    ASSERT_EQ(symlink("real", raw("sub/link1").constData()), 0);
    ASSERT_EQ(symlink("sub/made", raw("dangling").constData()), 0);
    ASSERT_EQ(symlink("sub/\xFF.csv", raw("legacy").constData()), 0);
    ASSERT_EQ(symlink("nowhere/made", raw("lost").constData()), 0);
    ASSERT_EQ(symlink("loop2", raw("loop1").constData()), 0);
    ASSERT_EQ(symlink("loop1", raw("loop2").constData()), 0);
    EXPECT_EQ(replaceBy(path("link2"), "new"), "");
    EXPECT_EQ(content("sub/real"), "new");
    EXPECT_EQ(modeOf("sub/real"), 0604);
    EXPECT_EQ(replaceBy(path("dangling"), "new"), "");
    EXPECT_EQ(content("sub/made"), "new");
    EXPECT_EQ(replaceBy(path("legacy"), "new"), "");
    EXPECT_EQ(unlink((raw("sub/") + "\xFF.csv").constData()), 0);
    EXPECT_EQ(replaceBy(path("lost"), "new"), "There is no folder " + path("nowhere").toStdString() + ".");
    EXPECT_EQ(replaceBy(path("loop1"), "new"),
              "The symbolic link " + path("loop1").toStdString() + " leads back to itself.");
    for (auto const* link : {"link2", "sub/link1", "dangling", "legacy", "lost", "loop1"})
        EXPECT_TRUE(QFileInfo(path(link)).isSymbolicLink()) << link;
}

TEST_F(AtomicFile, RefusesWhatIsNoRegularFile) {
    ASSERT_EQ(mkfifo(raw("fifo").constData(), 0644), 0);
    constexpr auto notRegular = "The path names something that is not a regular file.";
    constexpr auto directory = "The path names a directory, not a file.";
    EXPECT_EQ(replaceBy(path("fifo"), "x"), notRegular);
    EXPECT_EQ(replaceBy("/dev/full", "x"), notRegular);
    EXPECT_EQ(replaceBy(folder.path(), "x"), directory);
    EXPECT_EQ(replaceBy(path("new/"), "x"), directory);
    EXPECT_EQ(replaceBy(path("fifo/a"), "x"), path("fifo").toStdString() + " is not a folder.");
    EXPECT_EQ(replaceBy(path("no/a"), "x"), "There is no folder " + path("no").toStdString() + ".");
    EXPECT_THAT(replaceBy(path(QString(300, 'n')), "x"), testing::EndsWith("n is too long."));
    EXPECT_EQ(replaceBy(path(QStringLiteral("a") + QChar(0) + "b"), "x"),
              path("a?b").toStdString() + " cannot be the name of a file.");
    EXPECT_EQ(entries(), QStringList("fifo"));
}

TEST_F(AtomicFile, RespectsPermissions) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to drop rights";
    QDir(folder.path()).mkdir("closed");
    make("closed/a", "old", 0666);
    make("readonly", "old", 0444);
    chmod(raw("closed").constData(), 0555);
    chmod(raw(".").constData(), 0777);
    EXPECT_TRUE(trueInChild([&] {
        return setgid(65534) == 0 && setuid(65534) == 0 &&
               replaceBy(path("closed/a"), "x") ==
                   "The folder " + path("closed").toStdString() + " may not be written." &&
               replaceBy(path("readonly"), "x") ==
                   "The file " + path("readonly").toStdString() + " may not be written.";
    }));
    EXPECT_EQ(content("closed/a") + content("readonly"), "oldold");
    EXPECT_EQ(QDir(path("closed")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList("a"));
    // A file of others that may be written is replaced by one of the user's own.
    make("shared", "old", 0666);
    EXPECT_TRUE(trueInChild(
        [&] { return setgid(65534) == 0 && setuid(65534) == 0 && replaceBy(path("shared"), "new").empty(); }));
    EXPECT_EQ(content("shared"), "new");
    EXPECT_EQ(modeOf("shared"), 0666);
}

TEST_F(AtomicFile, AFileTooLargeForTheProcessLeavesTheOldOne) {
    make("a", "old");
    EXPECT_TRUE(trueInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const limit{100000, 100000};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               replaceBy(path("a"), std::string(200000, 'x')) ==
                   "The file " + path("a").toStdString() + " would be larger than it may be.";
    }));
    EXPECT_EQ(content("a"), "old");
    EXPECT_EQ(entries(), QStringList("a"));
}

TEST_F(AtomicFile, AFullDiskLeavesTheOldFile) {
    if (geteuid() != 0 || mount("tmpfs", raw(".").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "needs the right to mount";
    make("a", QByteArray(30000, 'o'));
    for (int const size : {40000, 65536, 1000000}) {
        EXPECT_EQ(replaceBy(path("a"), std::string(size, 'x')),
                  "No space is left on the disk that holds " + folder.path().toStdString() + ".")
            << size;
        EXPECT_EQ(content("a"), std::string(30000, 'o'));
        EXPECT_EQ(entries(), QStringList("a"));
    }
    EXPECT_EQ(replaceBy(path("a"), std::string(20000, 'x')), "");
    umount2(raw(".").constData(), MNT_DETACH);
}

// Without /proc a file cannot get its name later, so that it has one from the start.
TEST_F(AtomicFile, WorksThroughANamedFileToo) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to change the root directory";
    make("a", "old", 0604);
    EXPECT_TRUE(trueInChild([&] {
        if (chroot(raw(".").constData()) != 0 || chdir("/") != 0)
            return false;
        {
            AtomicFileWriter dropped("/a");
            if (!dropped.open() || !dropped.write("x") || QDir("/").entryList(QDir::Files | QDir::Hidden).size() != 2)
                return false;
        }
        return QDir("/").entryList(QDir::Files | QDir::Hidden).size() == 1 && replaceBy("/a", "new").empty();
    }));
    EXPECT_EQ(content("a"), "new");
    EXPECT_EQ(modeOf("a"), 0604);
    EXPECT_EQ(entries(), QStringList("a"));
}

// The killed process leaves a name of its own behind; those of the living and of others are nobody's business.
TEST_F(AtomicFile, RemovesWhatKilledSavesHaveLeft) {
    auto const own = newTemporaryName();
    auto const parts = own.split('-');
    auto const named = [&](QByteArray const& space, QByteArray const& process, QByteArray const& start) {
        return ".gridwright-" + space + '-' + process + '-' + start + "-1a.tmp";
    };
    auto const child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    auto const gone = QByteArray::number(child);
    auto const dead = named(parts[1], gone, parts[3]), reused = named(parts[1], parts[2], "1");
    for (auto const& name : {dead, reused})
        EXPECT_TRUE(isAbandonedName(name)) << name.constData();
    QStringList kept{own, named("00000000", gone, "1"), dead + "x", ".gridwright-1a.tmp"};
    for (auto const& name : kept) {
        EXPECT_FALSE(isAbandonedName(name.toLatin1()));
        make(name, "kept");
    }
    make(dead, "dead");
    make(reused, "dead");
    EXPECT_EQ(replaceBy(path("a"), "new"), "");
    kept.append("a");
    EXPECT_THAT(entries(), testing::UnorderedElementsAreArray(kept));
}

TEST_F(AtomicFile, ATargetThatIsAnotherOneThanExpectedIsLeftAlone) {
    for (auto const way : {AtomicFileWriter::Way::Replace, AtomicFileWriter::Way::InPlace}) {
        make("a", "old");
        auto const expected = FileStamp::of(path("a"));
        AtomicFileWriter first(path("a"), {way, expected});
        ASSERT_TRUE(first.open() && first.write("first") && first.commit()) << first.errorString().toStdString();
        EXPECT_EQ(first.stamp(), FileStamp::of(path("a")));
        AtomicFileWriter second(path("a"), {way, expected});
        EXPECT_FALSE(second.open() && second.write("second") && second.commit());
        EXPECT_EQ(second.outcome(), AtomicFileWriter::Outcome::TargetChanged);
        EXPECT_EQ(content("a"), "first");
        AtomicFileWriter third(path("a"), {way, first.stamp()});
        EXPECT_TRUE(third.open() && third.write("third") && third.commit());
    }
    EXPECT_EQ(entries(), QStringList("a"));
}

TEST_F(AtomicFile, WritesThroughToAllNamesOfAFile) {
    make("a", "a longer old text", 0640);
    ASSERT_EQ(link(raw("a").constData(), raw("b").constData()), 0);
    EXPECT_EQ(AtomicFileWriter::linkCount(path("a")), 2);
    EXPECT_EQ(AtomicFileWriter::linkCount(path("none")), 0);
    AtomicFileWriter file(path("a"), {AtomicFileWriter::Way::InPlace, {}});
    ASSERT_TRUE(file.open() && file.write("new"));
    EXPECT_EQ(content("b"), "a longer old text");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(content("a") + content("b"), "newnew");
    EXPECT_EQ(modeOf("a"), 0640);
    EXPECT_EQ(entries(), QStringList({"a", "b"}));
}

TEST_F(AtomicFile, AProcessKilledAtAnyMomentLeavesOneOfTheTwoFiles) {
    std::string const odd(3 << 20, '1'), even(2 << 20, '2');
    make("a", QByteArray::fromStdString(even), 0640);
    std::mt19937 random(20240817);
    for (int round = 0; round < 60; ++round) {
        auto const child = fork();
        if (child == 0)
            for (int save = 0;; ++save)
                if (!replaceBy(path("a"), save % 2 ? even : odd).empty())
                    _exit(1);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 25000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        auto const bytes = content("a");
        ASSERT_TRUE(bytes == odd || bytes == even) << bytes.size();
        ASSERT_EQ(modeOf("a"), 0640);
    }
}

} // namespace

#include "storage/AtomicFileWriter.h"

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
    EXPECT_EQ(replaceBy(path("lost"), "new"), "No such file or directory");
    EXPECT_EQ(replaceBy(path("loop1"), "new"), "The symbolic link leads back to itself.");
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
    EXPECT_EQ(replaceBy(path("fifo/a"), "x"), "Not a directory");
    EXPECT_EQ(replaceBy(path("no/a"), "x"), "No such file or directory");
    EXPECT_EQ(replaceBy(path(QString(300, 'n')), "x"), "File name too long");
    EXPECT_EQ(replaceBy(path(QStringLiteral("a") + QChar(0) + "b"), "x"), "Invalid argument");
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
        return setgid(65534) == 0 && setuid(65534) == 0 && replaceBy(path("closed/a"), "x") == "Permission denied" &&
               replaceBy(path("readonly"), "x") == "Permission denied";
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
               replaceBy(path("a"), std::string(200000, 'x')) == "File too large";
    }));
    EXPECT_EQ(content("a"), "old");
    EXPECT_EQ(entries(), QStringList("a"));
}

TEST_F(AtomicFile, AFullDiskLeavesTheOldFile) {
    if (geteuid() != 0 || mount("tmpfs", raw(".").constData(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "needs the right to mount";
    make("a", QByteArray(30000, 'o'));
    for (int const size : {40000, 65536, 1000000}) {
        EXPECT_EQ(replaceBy(path("a"), std::string(size, 'x')), "No space left on device") << size;
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

// Every call that a save makes to the system fails, once and from then on, for each reason that a disk has.

#include "storage/AccessList.h"
#include "storage/AtomicFileWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <linux/posix_acl.h>
#include <map>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

struct Fault {
    std::string call;
    int turn = 0; ///< the how manyeth of these calls, from 1 on
    bool lasting = false;
    int error = 0;
};

bool armed = false;
Fault fault;
std::map<std::string, int> turns;

bool fails(char const* call) {
    if (!armed)
        return false;
    auto const turn = ++turns[call];
    if (call != fault.call || turn < fault.turn || (turn > fault.turn && !fault.lasting))
        return false;
    errno = fault.error;
    return true;
}

} // namespace

#define FAULTY(Result, call, parameters, arguments)                                                                    \
    extern "C" Result __real_##call parameters;                                                                        \
    extern "C" Result __wrap_##call parameters;                                                                        \
    extern "C" Result __wrap_##call parameters {                                                                       \
        return fails(#call) ? -1 : __real_##call arguments;                                                            \
    }

FAULTY(ssize_t, write, (int f, void const* b, size_t n), (f, b, n))
FAULTY(ssize_t, read, (int f, void* b, size_t n), (f, b, n))
FAULTY(int, openat, (int d, char const* p, int o, mode_t m), (d, p, o, m))
FAULTY(int, open, (char const* p, int o, mode_t m), (p, o, m))
FAULTY(int, fstat, (int f, struct stat* s), (f, s))
FAULTY(int, stat, (char const* p, struct stat* s), (p, s))
FAULTY(int, lstat, (char const* p, struct stat* s), (p, s))
FAULTY(int, fstatat, (int d, char const* p, struct stat* s, int o), (d, p, s, o))
FAULTY(ssize_t, readlink, (char const* p, char* b, size_t n), (p, b, n))
FAULTY(int, faccessat, (int d, char const* p, int m, int o), (d, p, m, o))
FAULTY(int, access, (char const* p, int m), (p, m))
FAULTY(int, fchown, (int f, uid_t u, gid_t g), (f, u, g))
FAULTY(int, fchmod, (int f, mode_t m), (f, m))
FAULTY(ssize_t, fgetxattr, (int f, char const* a, void* b, size_t n), (f, a, b, n))
FAULTY(ssize_t, getxattr, (char const* p, char const* a, void* b, size_t n), (p, a, b, n))
FAULTY(int, fsetxattr, (int f, char const* a, void const* b, size_t n, int o), (f, a, b, n, o))
FAULTY(int, fremovexattr, (int f, char const* a), (f, a))
FAULTY(ssize_t, listxattr, (char const* p, char* b, size_t n), (p, b, n))
FAULTY(int, linkat, (int d, char const* p, int e, char const* q, int o), (d, p, e, q, o))
FAULTY(int, renameat, (int d, char const* p, int e, char const* q), (d, p, e, q))
FAULTY(int, unlinkat, (int d, char const* p, int o), (d, p, o))
FAULTY(off_t, lseek, (int f, off_t o, int w), (f, o, w))
FAULTY(int, ftruncate, (int f, off_t n), (f, n))
FAULTY(int, fallocate, (int f, int m, off_t o, off_t n), (f, m, o, n))
FAULTY(int, futimens, (int f, timespec const* t), (f, t))

// No test waits for the disk, and a descriptor is gone even if its end failed.
extern "C" int __wrap_fsync(int f);
extern "C" int __wrap_fsync(int) {
    return fails("fsync") ? -1 : 0;
}
extern "C" int __real_close(int f);
extern "C" int __wrap_close(int f);
extern "C" int __wrap_close(int f) {
    auto const result = __real_close(f);
    return fails("close") ? -1 : result;
}

namespace {

void add(QByteArray& list, quint16 tag, quint16 rights, quint32 id) {
    list.append(reinterpret_cast<char const*>(&tag), 2).append(reinterpret_cast<char const*>(&rights), 2);
    list.append(reinterpret_cast<char const*>(&id), 4);
}

/// The value of a list: its version, and then the owner, a user, the group, the mask and the others.
QByteArray accessList(quint32 user, quint16 userRights, quint16 group, quint16 mask, quint16 others) {
    QByteArray list("\2\0\0\0", 4);
    add(list, ACL_USER_OBJ, 6, -1);
    add(list, ACL_USER, userRights, user);
    add(list, ACL_GROUP_OBJ, group, -1);
    add(list, ACL_MASK, mask, -1);
    add(list, ACL_OTHER, others, -1);
    return list;
}

struct Scenario {
    AtomicFileWriter::Way way = AtomicFileWriter::Way::Replace;
    bool exists = true, list = true;
};

class SaveFaults : public testing::Test {
protected:
    void makeTarget(Scenario const& scenario) {
        auto const old = accessList(65532, 6, 4, 6, 0);
        removexattr(raw.constData(), "system.posix_acl_default");
        unlink(target.constData());
        if (!scenario.exists)
            return;
        QFile file(QFile::decodeName(target));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
        file.close();
        ASSERT_EQ(chmod(target.constData(), 0660), 0);
        if (scenario.list)
            setxattr(target.constData(), accessListAttribute, old.constData(), old.size(), 0);
        setxattr(target.constData(), "user.origin", "here", 4, 0);
        auto const leak = accessList(65533, 7, 7, 7, 7);
        setxattr(raw.constData(), "system.posix_acl_default", leak.constData(), leak.size(), 0);
    }
    std::string content() const {
        QFile file(QFile::decodeName(target));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
    }
    QByteArray listOf() const {
        char list[1000];
        auto const size = getxattr(target.constData(), accessListAttribute, list, sizeof list);
        return {list, std::max<ssize_t>(0, size)};
    }
    static qsizetype descriptors() {
        return QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
    }

    void run(Scenario const& scenario, Fault const& next) {
        makeTarget(scenario);
        auto const before = content();
        auto const list = listOf();
        auto const mode = modeOf();
        auto const open = descriptors();
        fault = next;
        turns.clear();
        bool saved = false;
        QString reason;
        QStringList notKept;
        {
            AtomicFileWriter file(QFile::decodeName(target), {scenario.way, {}});
            armed = true;
            saved = file.open() && file.write("new contents") && file.commit();
            reason = file.errorString();
            notKept = file.notKept();
        }
        armed = false;
        auto const after = content();
        bool const told = reason.contains("former contents are in") || !notKept.isEmpty();
        EXPECT_EQ(reason.isEmpty(), saved);
        if (!reason.contains("former contents are in")) {
            EXPECT_EQ(after, saved ? "new contents" : before) << reason.toStdString();
        }
        EXPECT_EQ(descriptors(), open);
        if (scenario.exists) {
            EXPECT_EQ(modeOf() & ~mode, 0);
            EXPECT_TRUE(listOf().isEmpty() || listOf() == list);
            EXPECT_TRUE(!saved || told || (listOf() == list && modeOf() == mode));
        }
        QDir const inside(QFile::decodeName(raw));
        for (auto const& name : inside.entryList(QDir::Files | QDir::Hidden)) {
            EXPECT_TRUE(name == "a" || next.call == "unlinkat" || reason.contains(name)) << name.toStdString();
            if (name != "a")
                unlink((raw + '/' + QFile::encodeName(name)).constData());
        }
    }
    int modeOf() const {
        struct stat status = {};
        return stat(target.constData(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    QTemporaryDir folder;
    QByteArray raw = QFile::encodeName(folder.path());
    QByteArray target = raw + "/a";
};

TEST_F(SaveFaults, LeaveAllOfTheOldFileOrAllOfTheNewOne) {
    using enum AtomicFileWriter::Way;
    for (auto const& scenario :
         {Scenario{}, Scenario{Replace, true, false}, Scenario{Replace, false, false}, Scenario{InPlace, true, true}}) {
        run(scenario, {});
        auto const calls = turns;
        EXPECT_GT(calls.size(), 10U);
        for (auto const& [call, count] : calls)
            for (int turn = 1; turn <= count; ++turn)
                for (int const error : {ENOSPC, EIO, EACCES, EPERM, EROFS, EINTR, EDQUOT, EOPNOTSUPP})
                    for (bool const lasting : {false, true}) {
                        SCOPED_TRACE(call + " " + std::to_string(turn) + " " + strerror(error) +
                                     (lasting ? " from then on" : " once") +
                                     (scenario.way == InPlace ? " in place" : ""));
                        run(scenario, {call, turn, lasting, error});
                        if (HasFailure())
                            return;
                    }
    }
}

TEST(AccessLists, NobodyGetsMoreWithoutTheList) {
    EXPECT_EQ(modeWithoutAccessList(accessList(1, 6, 4, 6, 0), 0660), 0640U);
    EXPECT_EQ(modeWithoutAccessList(accessList(1, 0, 6, 6, 4), 0664), 0600U);
    EXPECT_EQ(modeWithoutAccessList(accessList(1, 7, 7, 4, 6), 0646), 0644U);
    EXPECT_EQ(modeWithoutAccessList("unknown", 0664), 0600U);
}

} // namespace

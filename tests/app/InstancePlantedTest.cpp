#include "InstanceProbe.h"
#include "app/RuntimeFolder.h"
#include "app/SharedBlock.h"

#include <QFile>
#include <QSharedMemory>

#include <sys/ipc.h>
#include <sys/sem.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>

namespace {

/// Starts of a program whose names somebody else has taken.
class InstancePlantedTest : public SingleApplicationTest {
protected:
    void SetUp() override {
        SingleApplicationTest::SetUp();
        leavesFiles = true;
        ASSERT_EQ(::mkdir(path(folder()).constData(), 0700), 0);
    }
    static QByteArray path(QString const& name) { return QFile::encodeName(name); }
    static void write(QString const& name, qsizetype size) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(size, 'x'));
    }
    /// Which of the names the primary listens on.
    QString nameInUse() const {
        for (char const* suffix : {"", "-1", "-2"}) {
            QLocalSocket socket;
            socket.connectToServer(socketPath(suffix));
            if (socket.waitForConnected(patience)) {
                return suffix;
            }
        }
        return QStringLiteral("none");
    }
};

struct Plant {
    char const* what;
    std::function<void(QString const& block, QString const& socket)> plant;
    bool needsRoot = false;
};

std::vector<Plant> plants() {
    return {
        {"a folder", [](auto const& block, auto const&) { QDir().mkdir(block); }},
        {"a pipe", [](auto const& block, auto const&) { ::mkfifo(QFile::encodeName(block).constData(), 0600); }},
        {"a link", [](auto const& block, auto const&) { QFile::link("/tmp/victim", block); }},
        {"another size",
         [](auto const& block, auto const&) {
             QFile file(block);
             EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(153));
         }},
        {"a folder for a socket", [](auto const&, auto const& socket) { QDir().mkpath(socket + "/inside"); }},
        {"a file of another user",
         [](auto const& block, auto const&) {
             QFile file(block);
             EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(152));
             EXPECT_EQ(::fchown(file.handle(), otherUser, otherUser), 0);
         },
         true},
    };
}

/// Runs `work` in a process of its own. What it writes to the descriptor is the first that the test reads.
class Child {
public:
    explicit Child(std::function<void(int ready)> const& work) {
        EXPECT_EQ(::pipe(ends), 0);
        pid = ::fork();
        if (pid == 0) {
            work(ends[1]);
            ::_exit(0);
        }
        ::close(ends[1]);
    }
    ~Child() {
        ::close(ends[0]);
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
    }
    /// One byte that it has written; 0 if it has ended without one.
    char answer() {
        char byte = 0;
        return ::read(ends[0], &byte, 1) == 1 ? byte : '\0';
    }

private:
    int ends[2] = {-1, -1};
    pid_t pid = -1;
};

sockaddr_un addressOf(QString const& name) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, QFile::encodeName(name).constData(), sizeof(address.sun_path) - 1);
    return address;
}

} // namespace

TEST_F(InstancePlantedTest, AllStartsPassTheSameTakenNamesOver) {
    for (Plant const& entry : plants()) {
        if (entry.needsRoot && !canBeAnotherUser()) {
            continue;
        }
        SCOPED_TRACE(entry.what);
        QDir(folder()).removeRecursively();
        ASSERT_EQ(::mkdir(path(folder()).constData(), 0700), 0);
        entry.plant(blockPath(), socketPath());
        expectService();
        entry.plant(blockPath("-1"), socketPath("-1"));
        {
            Probe primary(appData);
            EXPECT_EQ(primary.role(), "primary");
            EXPECT_EQ(nameInUse(), "-2");
            // A name that has become free again leads no start away from the primary that lives.
            QDir(blockPath()).removeRecursively();
            QFile::remove(blockPath());
            QDir(socketPath()).removeRecursively();
            Probe second(appData);
            EXPECT_EQ(second.role(), "secondary");
            EXPECT_EQ(second.handOver("x"), "taken");
        }
        entry.plant(blockPath(), socketPath());
        entry.plant(blockPath("-2"), socketPath("-2"));
        Probe alone(appData);
        EXPECT_EQ(alone.line().split(' ').first(), "alone");
        EXPECT_EQ(alone.send("", "x", 10), "not sent");
        EXPECT_THAT(alone.errors().toStdString(), testing::HasSubstr("Starting without the service"));
    }
}

// Keys of the System V kind are 16 bits of the number of a file: anybody may have taken them.
TEST_F(InstancePlantedTest, SegmentsAndSemaphoresOfOthersAreNotInTheWay) {
    QStringList keyFiles;
    for (char const* suffix : {"", "-1", "-2"}) {
        write(socketPath(suffix), 0);
        keyFiles << socketPath(suffix) << QSharedMemory(name() + suffix).nativeKey();
        keyFiles << QString(keyFiles.last()).replace("sharedmemory", "systemsem");
    }
    QList<std::pair<int, int>> planted;
    for (QString const& keyFile : keyFiles) {
        write(keyFile, 0);
        key_t const key = ::ftok(path(keyFile).constData(), 'Q');
        planted.append({::shmget(key, 4096, IPC_CREAT | IPC_EXCL), ::semget(key, 3, IPC_CREAT | IPC_EXCL)});
    }
    expectService();
    for (auto const& [segment, semaphore] : planted) {
        ::shmctl(segment, IPC_RMID, nullptr);
        ::semctl(semaphore, 0, IPC_RMID);
    }
}

TEST_F(InstancePlantedTest, ServerOfAnotherUserIsToldNothing) {
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "only root can be another user";
    }
    QString const place = socketPath();
    auto const listen = [place](int ready) {
        int const server = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un const address = addressOf(place);
        ::unlink(address.sun_path);
        if (::bind(server, reinterpret_cast<sockaddr const*>(&address), sizeof(address)) != 0 ||
            ::setuid(otherUser) != 0 || ::listen(server, 5) != 0) {
            return;
        }
        ::write(ready, "l", 1);
        for (;;) {
            char byte = 0;
            int const client = ::accept(server, nullptr, nullptr);
            if (::read(client, &byte, 1) == 1) {
                ::write(ready, &byte, 1); // what it was told
            }
            ::close(client);
        }
    };
    {
        Child foreign(listen); // before the first start
        EXPECT_EQ(foreign.answer(), 'l');
        expectService();
    }
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    Child foreign(listen); // in the place of the primary
    EXPECT_EQ(foreign.answer(), 'l');
    Probe start(appData);
    EXPECT_EQ(start.role(), "secondary");
    EXPECT_EQ(start.handOver("secret"), "own, alone");
    QLocalSocket teller;
    connectTo(teller, place);
    teller.write("q");
    EXPECT_TRUE(teller.waitForDisconnected(patience));
    EXPECT_EQ(foreign.answer(), 'q'); // and nothing before it
}

TEST_F(InstancePlantedTest, ClientOfAnotherUserIsSentAway) {
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "only root can be another user";
    }
    Probe primary(appData);
    ASSERT_EQ(primary.role(), "primary");
    ASSERT_EQ(::chmod(path(home.path()).constData(), 0711), 0);
    ASSERT_EQ(::chmod(path(folder()).constData(), 0711), 0);
    ASSERT_EQ(::chmod(path(socketPath()).constData(), 0666), 0);
    QByteArray const talk = framed(init(ConnectionType::MessageConnection)) + framed("/<x");
    Child foreign([&](int ready) {
        int const client = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un const address = addressOf(socketPath());
        if (::setuid(otherUser) != 0 ||
            ::connect(client, reinterpret_cast<sockaddr const*>(&address), sizeof(address)) != 0) {
            return;
        }
        ::send(client, talk.constData(), talk.size(), MSG_NOSIGNAL);
        char byte = 0;
        ::write(ready, ::read(client, &byte, 1) == 1 ? "a" : "d", 1);
    });
    EXPECT_EQ(foreign.answer(), 'd');
    ASSERT_EQ(::chmod(path(home.path()).constData(), 0700), 0);
    ASSERT_EQ(::chmod(path(folder()).constData(), 0700), 0);
    Probe honest(appData);
    EXPECT_EQ(honest.role(), "secondary");
    EXPECT_EQ(honest.handOver("y"), "taken");
    EXPECT_EQ(primary.line(), received(1, "/<y"));
}

TEST_F(InstancePlantedTest, AStartWithoutTheEnvironmentOfTheSessionFindsItsFolder) {
    QString const session = home.filePath("run/" + QString::number(geteuid()));
    QDir().mkpath(session);
    ASSERT_EQ(::chmod(path(session).constData(), 0700), 0);
    RuntimeFolder::setSessionsFolder(home.filePath("run"));
    auto const found = [] {
        RuntimeFolder place;
        return place.open(true) ? place.filePath({}).chopped(1) : QString();
    };
    qputenv("XDG_RUNTIME_DIR", path(session + '/'));
    EXPECT_EQ(found(), session + "/gridwright");
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(found(), session + "/gridwright");
    ASSERT_EQ(::chmod(path(session).constData(), 0750), 0);
    EXPECT_EQ(found(), home.filePath("gridwright-" + QString::number(geteuid())));
    RuntimeFolder::setSessionsFolder({});
}

TEST_F(InstancePlantedTest, FoldersThatOthersMayEnterArePassedOver) {
    RuntimeFolder::setSessionsFolder({}); // those of this machine are not the test's
    QString const session = home.filePath("session");
    QString const own = home.filePath("gridwright-" + QString::number(geteuid()));
    QDir().mkdir(session);
    ASSERT_EQ(::chmod(path(session).constData(), 0755), 0);
    qputenv("XDG_RUNTIME_DIR", path(session));
    auto const found = [] {
        RuntimeFolder place;
        return place.open(true) ? place.filePath({}).chopped(1) : QString();
    };
    EXPECT_EQ(found(), own);
    ASSERT_EQ(::chmod(path(own).constData(), 0750), 0);
    EXPECT_EQ(found(), own + "-1");
    QDir().rmdir(own + "-1");
    QFile::link(session, own + "-1");
    EXPECT_EQ(found(), own + "-2");
    expectService();
    if (canBeAnotherUser()) {
        ASSERT_EQ(::chown(path(own + "-2").constData(), otherUser, otherUser), 0);
        EXPECT_EQ(found(), QString());
        Probe alone(appData);
        EXPECT_EQ(alone.role(), "alone");
        ASSERT_EQ(::chmod(path(session).constData(), 0700), 0);
        EXPECT_EQ(found(), session + "/gridwright");
        ASSERT_EQ(::chown(path(session).constData(), otherUser, otherUser), 0);
        EXPECT_EQ(found(), QString());
    }
    qputenv("XDG_RUNTIME_DIR", "relative");
    EXPECT_EQ(found().isEmpty(), canBeAnotherUser());
}

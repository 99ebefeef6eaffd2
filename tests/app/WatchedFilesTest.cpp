#include "app/WatchedFiles.h"

#include <QMap>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

class FakeWatch : public FileWatch {
public:
    QDateTime now() const override { return QDateTime::fromMSecsSinceEpoch(time, Qt::UTC); }
    void after(int ms, std::function<void()> call) override { timers.insert(time + ms, std::move(call)); }
    std::optional<FileState> stateOf(QString const& path) const override {
        return states.contains(path) ? std::optional(states[path]) : std::nullopt;
    }
    bool isWatched(QString const& path) const override { return watched.contains(path); }
    void watch(QString const& path) override {
        if (states.value(path).readable) {
            watched.append(path);
        }
    }
    void unwatch(QString const& path) override { watched.removeAll(path); }

    void write(QString const& path) { states[path] = {time, ++size, 1, true, true}; }
    void pass(int ms) {
        qint64 const end = time + ms;
        while (!timers.isEmpty() && timers.firstKey() <= end) {
            time = timers.firstKey();
            auto const call = timers.take(time);
            call();
        }
        time = end;
    }

    qint64 time = 1000000;
    qint64 size = 0;
    QMultiMap<qint64, std::function<void()>> timers;
    QMap<QString, FileState> states;
    QStringList watched;
};

class WatchedFilesTest : public testing::Test {
protected:
    WatchedFilesTest() {
        files.write(path);
        watch.add(path);
        auto const note = [this](QString const& word) { return [this, word](QString const&) { done << word; }; };
        QObject::connect(&watch, &WatchedFiles::fileGoneSignal, note("gone"));
        QObject::connect(&watch, &WatchedFiles::askSignal, note("ask"));
        QObject::connect(&watch, &WatchedFiles::askAboutUnsavedSignal, note("ask unsaved"));
        QObject::connect(&watch, &WatchedFiles::reloadSignal, note("reload"));
    }
    void outsideWrite() {
        files.write(path);
        watch.onFileChanged(path);
    }
    void save() {
        watch.onSaveStarted(path);
        files.write(path);
        files.watched.clear(); // a replaced file loses its watch
        watch.onFileChanged(path);
        watch.onSaveFinished(path);
    }

    QString const path = "/a.csv";
    FakeWatch files;
    RefreshBehavior behavior = RefreshBehavior::Refresh;
    bool open = true;
    bool unsaved = false;
    bool asking = false;
    bool loading = false;
    QStringList done;
    WatchedFiles watch{files,
                       {[this] { return behavior; }, [this](QString const&) { return open; },
                        [this](QString const&) { return unsaved; }, [this] { return asking; },
                        [this](QString const&) { return loading; }},
                       {}};
};

} // namespace

TEST_F(WatchedFilesTest, WhatAChangeAsksForFollowsTheBehaviorAndTheEdits) {
    struct Case {
        RefreshBehavior behavior;
        bool unsaved;
        bool open;
        QStringList expected;
    };
    for (Case const& c :
         {Case{RefreshBehavior::Refresh, false, true, {"reload"}},
          Case{RefreshBehavior::Refresh, true, true, {"ask unsaved"}}, Case{RefreshBehavior::Ask, false, true, {"ask"}},
          Case{RefreshBehavior::Ask, true, true, {"ask"}}, Case{RefreshBehavior::Ignore, true, true, {}},
          Case{RefreshBehavior::Refresh, false, false, {}}}) {
        behavior = c.behavior;
        unsaved = c.unsaved;
        open = c.open;
        done.clear();
        outsideWrite();
        files.pass(749);
        EXPECT_EQ(done, QStringList());
        files.pass(1);
        EXPECT_EQ(done, c.expected) << static_cast<int>(c.behavior) << c.unsaved << c.open;
        watch.recordWatchedFileState(path);
        files.pass(10000);
        EXPECT_EQ(done, c.expected) << "asked twice";
    }
}

TEST_F(WatchedFilesTest, ABurstCountsOnceAndAnEventWithoutAChangeNotAtAll) {
    for (int i = 0; i < 3; ++i) {
        outsideWrite();
        files.pass(400);
    }
    files.pass(750);
    EXPECT_EQ(done, QStringList{"reload"});
    watch.recordWatchedFileState(path);
    watch.onFileChanged(path);
    files.pass(750);
    EXPECT_EQ(done.size(), 1);
}

TEST_F(WatchedFilesTest, AnOwnSaveIsQuietAndAWriteByOthersRightAfterItIsNotLost) {
    save();
    files.pass(20000);
    EXPECT_EQ(done, QStringList());
    EXPECT_TRUE(files.isWatched(path));

    save();
    files.pass(300);
    files.write(path); // no event: the watch is not back yet
    files.pass(2600);
    EXPECT_EQ(done, QStringList());
    files.pass(2000);
    EXPECT_EQ(done, QStringList{"reload"});
}

TEST_F(WatchedFilesTest, ASaveUnderAnotherNameThatFailsLeavesAWriteByOthersToBeSeen) {
    QStringList paths;
    QObject::connect(&watch, &WatchedFiles::reloadSignal, [&paths](QString const& told) { paths << told; });
    files.write("/other.csv");
    watch.onSaveStarted("/other.csv");
    outsideWrite();
    watch.onSaveFinished(path);
    files.pass(20000);
    EXPECT_EQ(paths.count(path), 1);
}

TEST_F(WatchedFilesTest, AChangeWaitsForQuestionsSavesAndLoadsToEnd) {
    for (bool* const state : {&asking, &loading}) {
        *state = true;
        outsideWrite();
        files.pass(5000);
        EXPECT_EQ(done, QStringList());
        *state = false;
        files.pass(750);
        EXPECT_EQ(done, QStringList{"reload"});
        done.clear();
    }
    watch.add("/second.csv");
    files.write("/second.csv");
    asking = true;
    outsideWrite();
    watch.onFileChanged("/second.csv");
    files.pass(5000);
    asking = false;
    files.pass(750);
    EXPECT_EQ(done, (QStringList{"reload", "reload"})) << "of each file";
    done.clear();
    watch.onSaveStarted(path);
    outsideWrite();
    files.pass(20000);
    EXPECT_EQ(done, QStringList());
    watch.onSaveFinished(path);
    files.pass(20000);
    EXPECT_EQ(done, QStringList()) << "the save has written over it";
}

TEST_F(WatchedFilesTest, AWriteWhileTheFileIsReadAgainGivesAnotherReload) {
    watch.startReload(path);
    files.pass(100);
    outsideWrite();
    files.pass(5000);
    EXPECT_EQ(done, QStringList());
    watch.onLoadFinished(path);
    files.pass(5000);
    EXPECT_EQ(done, QStringList{"reload"});
}

TEST_F(WatchedFilesTest, AChangeThatComesWhileOneIsAskedAboutIsNotIgnoredWithIt) {
    for (bool const later : {false, true}) {
        done.clear();
        unsaved = true;
        outsideWrite();
        files.pass(750);
        EXPECT_EQ(done, QStringList{"ask unsaved"});
        if (later)
            files.write(path); // not heard
        watch.ignoreChange(path);
        EXPECT_EQ(watch.hasWatchedFileStateChanged(path), later);
        files.pass(5000);
        EXPECT_EQ(done.size(), later ? 2 : 1);
        watch.ignoreChange(path);
        EXPECT_FALSE(watch.holdsBackSave(path));
    }
}

TEST_F(WatchedFilesTest, AFileThatGoesTakesItsTableAlongAndAReplacedOneIsWatchedAgain) {
    files.watched.clear();
    files.states.remove(path);
    watch.onFileChanged(path);
    files.pass(700);
    files.write(path);
    files.pass(50);
    EXPECT_EQ(done, QStringList{"reload"});
    EXPECT_TRUE(files.isWatched(path));

    loading = true; // of a file that is gone, this may never end
    files.states.remove(path);
    watch.onFileChanged(path);
    files.pass(750);
    EXPECT_EQ(done, (QStringList{"reload", "gone"}));
}

TEST_F(WatchedFilesTest, AFileThatCannotBeWatchedIsLookedAtUntilItCan) {
    files.write(path);
    files.states[path].readable = false; // one that nobody may read is moved over it
    files.watched.clear();
    watch.onFileChanged(path);
    files.pass(750);
    EXPECT_EQ(done, QStringList{"reload"});
    watch.startReload(path);
    watch.onLoadFailed(path);
    files.pass(60000);
    EXPECT_EQ(done.size(), 1) << "told once";
    EXPECT_TRUE(watch.holdsBackSave(path)) << "nobody has read what it holds";
    watch.startReload(path);
    watch.onLoadFailed(path);
    done.clear();

    files.states[path].readable = true;
    files.pass(10000);
    EXPECT_EQ(done, QStringList{"reload"});
    watch.startReload(path);
    watch.onLoadFinished(path);
    EXPECT_TRUE(files.isWatched(path));
    files.pass(60000);
    EXPECT_EQ(done.size(), 1);
    EXPECT_TRUE(files.timers.isEmpty()) << "a watched file is left alone";
    EXPECT_FALSE(watch.holdsBackSave(path));
}

TEST_F(WatchedFilesTest, ASaveIsHeldBackByAChangeUntilItIsRecordedAndNeverByAFileThatIsGone) {
    EXPECT_FALSE(watch.holdsBackSave(path));
    EXPECT_FALSE(watch.holdsBackAutoSave(path));
    files.write(path); // not heard
    unsaved = true;
    EXPECT_TRUE(watch.holdsBackAutoSave(path));
    EXPECT_EQ(done, QStringList());
    files.pass(750);
    EXPECT_EQ(done, QStringList{"ask unsaved"});
    EXPECT_TRUE(watch.holdsBackSave(path));
    EXPECT_EQ(done.size(), 2);
    watch.recordWatchedFileState(path);
    EXPECT_FALSE(watch.holdsBackSave(path));
    ++files.states[path].inode; // of the same time and size
    EXPECT_TRUE(watch.holdsBackSave(path));
    behavior = RefreshBehavior::Ignore;
    EXPECT_FALSE(watch.holdsBackSave(path));
    behavior = RefreshBehavior::Refresh;
    files.states.remove(path);
    EXPECT_FALSE(watch.holdsBackSave(path));
}

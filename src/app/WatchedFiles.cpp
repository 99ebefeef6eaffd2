#include "app/WatchedFiles.h"

#include "model/AutoSaveEvent.h"

#include <utility>

WatchedFiles::WatchedFiles(FileWatch& files, Tables tables, Timings timings, QObject* parent)
    : QObject(parent), files(files), tables(std::move(tables)), timings(timings) {}

void WatchedFiles::add(QString const& path) {
    if (!path.isEmpty()) {
        restoreWatch(path);
        recordWatchedFileState(path);
    }
}

void WatchedFiles::remove(QString const& path) {
    if (files.isWatched(path)) {
        files.unwatch(path);
    }
    clearWatchedFileState(path);
}

void WatchedFiles::clearWatchedFileState(QString const& path) {
    loadingPaths.remove(path);
    generations.remove(path);
    cooldowns.remove(path);
    lastSeen.remove(path);
    asked.remove(path);
    unread.remove(path);
}

void WatchedFiles::restoreWatch(QString const& path) {
    if (!files.isWatched(path) && files.stateOf(path)) {
        files.watch(path);
    }
    if (!files.isWatched(path) && !unwatched.contains(path)) {
        unwatched.insert(path);
        files.after(timings.retry, [this, path] { lookAgain(path); });
    }
}

void WatchedFiles::lookAgain(QString const& path) {
    unwatched.remove(path);
    if (!tables.isOpen(path)) {
        return;
    }
    restoreWatch(path);
    bool const hasNeverBeen = !lastSeen.contains(path) && !files.stateOf(path);
    if (!hasNeverBeen && hasWatchedFileStateChanged(path)) {
        onFileChanged(path);
    }
}

void WatchedFiles::recordWatchedFileState(QString const& path) {
    if (path.isEmpty()) {
        return;
    }
    unread.remove(path);
    if (std::optional<FileState> const state = files.stateOf(path)) {
        lastSeen.insert(path, *state);
    } else {
        lastSeen.remove(path);
    }
}

void WatchedFiles::ignoreChange(QString const& path) {
    if (!tables.isOpen(path)) {
        return;
    }
    if (asked.contains(path)) {
        lastSeen.insert(path, asked.take(path));
        unread.remove(path);
    }
    if (hasWatchedFileStateChanged(path)) {
        onFileChanged(path);
    }
}

bool WatchedFiles::hasWatchedFileStateChanged(QString const& path) const {
    std::optional<FileState> const state = files.stateOf(path);
    auto const known = lastSeen.constFind(path);
    return !state || known == lastSeen.constEnd() || *known != *state;
}

bool WatchedFiles::isUnknown(QString const& path) const {
    return unread.contains(path) || hasWatchedFileStateChanged(path);
}

// A save that makes a file anew takes nothing away, and one over what is no regular file fails.
bool WatchedFiles::wouldSaveOverChange(QString const& path) const {
    std::optional<FileState> const state = files.stateOf(path);
    return tables.behavior() != RefreshBehavior::Ignore && tables.isOpen(path) && state && state->regular &&
           isUnknown(path);
}

bool WatchedFiles::holdsBackSave(QString const& path) {
    if (!wouldSaveOverChange(path)) {
        return false;
    }
    tellChange(path);
    return true;
}

bool WatchedFiles::holdsBackAutoSave(QString const& path) {
    if (!wouldSaveOverChange(path)) {
        return false;
    }
    deferExternalFileChange(path);
    return true;
}

bool WatchedFiles::isHeedingChanges() const {
    return tables.behavior() != RefreshBehavior::Ignore;
}

// The file was written between the look at it and the moment in which it was to be replaced, or while it was read.
void WatchedFiles::onSaveRefused(QString const& path) {
    lastSeen.remove(path);
    holdsBackSave(path);
}

void WatchedFiles::onAutoSaveRefused(QString const& path) {
    lastSeen.remove(path);
    holdsBackAutoSave(path);
}

bool WatchedFiles::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == AutoSaveEvent::eventType()) {
        auto* const begun = static_cast<AutoSaveEvent*>(event);
        begun->setHeedsChanges(isHeedingChanges());
        begun->setAccepted(!holdsBackAutoSave(begun->getPath()));
    }
    return QObject::eventFilter(watched, event);
}

// The program's own writes and loads.

void WatchedFiles::startInternalFileChangeCooldown(QString const& path) {
    if (!path.isEmpty()) {
        cooldowns.insert(path, files.now().addMSecs(timings.cooldown));
    }
}

void WatchedFiles::onSaveStarted(QString const& path) {
    saving = true;
    savingPath = path;
    savedPaths.append(path);
    startInternalFileChangeCooldown(path);
}

// A save under another name that fails ends with the table's own file, which it has not written.
void WatchedFiles::onSaveFinished(QString const& path) {
    saving = false;
    startInternalFileChangeCooldown(path);
    if (path == savingPath) {
        recordWatchedFileState(path);
    }
    files.after(timings.restore, [this] { resetFilepathSavedList(); });
}

// The state is taken before the file is read: what is written while it is read has to be noticed.
void WatchedFiles::startReload(QString const& path) {
    savedPaths.append(path);
    loadingPaths.insert(path);
    startInternalFileChangeCooldown(path);
    recordWatchedFileState(path);
}

void WatchedFiles::onLoadFinished(QString const& path) {
    loadingPaths.remove(path);
    if (!saving) {
        resetFilepathSavedList();
    }
}

void WatchedFiles::onLoadFailed(QString const& path) {
    unread.insert(path);
    onLoadFinished(path);
}

// A file that was put in the place of another has lost its watch, and nothing tells of changes until it is back. A
// change in between shows in the file's state.
void WatchedFiles::resetFilepathSavedList() {
    for (QString const& path : std::exchange(savedPaths, {})) {
        if (!tables.isOpen(path)) {
            clearWatchedFileState(path);
            continue;
        }
        restoreWatch(path);
        if (hasWatchedFileStateChanged(path)) {
            deferExternalFileChange(path);
        }
    }
}

// Changes by others.

void WatchedFiles::onFileChanged(QString const& path) {
    if (!tables.isOpen(path)) {
        return;
    }
    if (tables.behavior() == RefreshBehavior::Ignore) {
        files.after(timings.quiet, [this, path] {
            if (tables.isOpen(path)) {
                restoreWatch(path);
            }
        });
        return;
    }
    deferExternalFileChange(path);
}

void WatchedFiles::deferExternalFileChange(QString const& path) {
    if (!path.isEmpty()) {
        processLater(path, ++generations[path]);
    }
}

void WatchedFiles::processLater(QString const& path, int generation) {
    files.after(timings.quiet, [this, path, generation] { processExternalFileChange(path, generation); });
}

bool WatchedFiles::mustWait(QString const& path) const {
    if (saving || tables.isAsking()) {
        return true;
    }
    // A file that is gone is not waited for.
    if ((loadingPaths.contains(path) || tables.isLoading(path)) && files.stateOf(path)) {
        return true;
    }
    QDateTime const until = cooldowns.value(path);
    return until.isValid() && files.now() < until;
}

void WatchedFiles::processExternalFileChange(QString const& path, int generation) {
    if (generations.value(path, 0) != generation || tables.behavior() == RefreshBehavior::Ignore ||
        !tables.isOpen(path)) {
        return;
    }
    if (mustWait(path)) {
        processLater(path, generation);
        return;
    }
    if (!files.stateOf(path)) {
        clearWatchedFileState(path);
        emit fileGoneSignal(path);
        return;
    }
    restoreWatch(path);
    if (isUnknown(path)) {
        tellChange(path);
    }
}

void WatchedFiles::tellChange(QString const& path) {
    asked.remove(path);
    if (std::optional<FileState> const state = files.stateOf(path)) {
        asked.insert(path, *state);
    }
    if (tables.behavior() == RefreshBehavior::Ask) {
        emit askSignal(path);
    } else if (tables.hasUnsavedEdits(path)) {
        emit askAboutUnsavedSignal(path);
    } else {
        emit reloadSignal(path);
    }
}

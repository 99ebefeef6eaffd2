#pragma once

#include <QEvent>
#include <QString>

#include <utility>

/// What a table model sends to itself before a save that an edit brings about. Who installs an event filter on the
/// model and takes it leaves the save out.
class AutoSaveEvent : public QEvent {
public:
    explicit AutoSaveEvent(QString path) : QEvent(eventType()), path(std::move(path)) {}

    static Type eventType() {
        static Type const type = static_cast<Type>(registerEventType());
        return type;
    }
    QString const& getPath() const { return path; }
    /// Whether the save is to leave a file alone that is another one than the model knows. So unless told otherwise.
    bool heedsChanges() const { return heeding; }
    void setHeedsChanges(bool on) { heeding = on; }

private:
    QString path; ///< of the file that is to be written
    bool heeding = true;
};

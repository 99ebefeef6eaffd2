#pragma once

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>

#include <memory>

/// The base of a job in the background: it tells how far it is, at most ten times a second, and ends when the flag that
/// it shares with whoever waits for it says so. Lives in the thread that does the job; the flag is only touched under
/// its mutex.
class Worker : public QObject {
    Q_OBJECT

public:
    explicit Worker(QObject* parent = nullptr) : QObject(parent) {}
    Worker(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex, QObject* parent);

    /// The job and the dialog before it share both.
    void setCancelPointers(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex);
    /// The share of a larger job that this one is, in per cent.
    void setProgressBounds(int minimum, int maximum);
    /// To be called before the job's first update.
    void initiateProgressUpdate() { updateTimer.start(); }
    /// Whether the last update is more than 100 ms ago.
    bool readyForUpdate() const { return updateTimer.elapsed() > 100; }
    /// False without a flag.
    bool isCanceled() const;

public slots:
    /// Tells that `fraction` of the job, from 0 to 1, is done; false if the job is to end.
    bool updateProgress(float fraction);

signals:
    void updateProgressSignal(float percent);

private:
    int progressMin = 0;
    int progressMax = 100;
    std::shared_ptr<bool> cancelFlag;
    std::shared_ptr<QMutex> cancelMutex;
    QElapsedTimer updateTimer;
};

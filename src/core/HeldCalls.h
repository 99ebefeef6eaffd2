#pragma once

#include <QPointer>

#include <deque>
#include <functional>

/// Calls that wait for their time, in order. One is dropped with its context, all of them at the end of the program,
/// which does not end with its last window while one waits.
class HeldCalls {
public:
    void add(QObject* context, std::function<void()> call);
    bool isEmpty() const { return calls.empty(); }
    /// Carries calls out, the first one first, for as long as `isFree`. A call may wait for the user itself; what comes
    /// then has its turn behind it.
    void carryOutWhile(std::function<bool()> const& isFree);

private:
    struct Call {
        QPointer<QObject> context;
        std::function<void()> call;
    };

    std::deque<Call> calls;
    bool keepsRunning = false;
};

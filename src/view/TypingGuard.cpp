#include "view/TypingGuard.h"

#include "core/HeldCalls.h"
#include "core/ModalHold.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace {

struct Text {
    QPointer<QObject> owner;
    std::function<bool()> isOpen;
};

constexpr qint64 never = std::numeric_limits<qint64>::min() / 2;

TypingGuard::Clock clockInUse;
qint64 lastKeyAt = never;
qint64 lastActAt = never; // keys of shortcuts and the mouse included
std::vector<Text> texts;
HeldCalls calls;
bool isLooking = false; // in its turn, or when a timer ends
int outside = 0;

bool isOfShortcut(QKeyEvent const& event) {
    return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0 ||
           event.key() == Qt::Key_Control || event.key() == Qt::Key_Alt || event.key() == Qt::Key_Meta;
}

/// Sees the keys before anybody else does. The input method has most of a text in some languages.
class KeyWatch : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
            lastActAt = TypingGuard::now();
            lastKeyAt = isOfShortcut(*static_cast<QKeyEvent const*>(event)) ? lastKeyAt : lastActAt;
            break;
        case QEvent::InputMethod: TypingGuard::noteKey(); break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick: lastActAt = TypingGuard::now(); break;
        default: break;
        }
        return QObject::eventFilter(watched, event);
    }
};

bool isTextOpen() {
    return std::any_of(texts.begin(), texts.end(), [](Text const& each) { return each.owner && each.isOpen(); });
}

bool isFree() {
    return !ModalHold::isOpen() && !TypingGuard::isTyping();
}

void lookLater();

// Behind what waits for a question already.
void lookInTurn() {
    isLooking = true;
    ModalHold::whenFree(QCoreApplication::instance(), [] {
        isLooking = false;
        calls.carryOutWhile(isFree);
        lookLater();
    });
}

void lookLater() {
    if (calls.isEmpty() || std::exchange(isLooking, true))
        return;
    constexpr int oftenMs = 100;
    if (clockInUse.after)
        clockInUse.after(oftenMs, lookInTurn);
    else
        QTimer::singleShot(oftenMs, QCoreApplication::instance(), lookInTurn);
}

} // namespace

void TypingGuard::setClock(Clock newClock) {
    clockInUse = std::move(newClock);
    lastKeyAt = never;
    lastActAt = never;
    isLooking = false; // the timer of the former clock may never end
    lookLater();
}

qint64 TypingGuard::now() {
    static QElapsedTimer const timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clockInUse.now ? clockInUse.now() : timer.elapsed();
}

void TypingGuard::addText(QObject* owner, std::function<bool()> isOpen) {
    static QPointer<QObject> watch;
    if (!watch) {
        watch = new KeyWatch(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(watch);
    }
    std::erase_if(texts, [](Text const& each) { return each.owner.isNull(); });
    texts.push_back({owner, std::move(isOpen)});
}

bool TypingGuard::isTyping() {
    qint64 const time = now();
    return time - lastKeyAt < stillMs || (time - lastActAt < idleMs && isTextOpen());
}

qint64 TypingGuard::lastKey() {
    return lastKeyAt;
}

bool TypingGuard::isInKeys() {
    return lastKeyAt == lastActAt && now() - lastKeyAt < stillMs;
}

void TypingGuard::noteKey() {
    lastKeyAt = now();
    lastActAt = lastKeyAt;
}

void TypingGuard::whenStill(QObject* context, std::function<void()> call) {
    calls.add(context, [call = std::move(call)] {
        FromOutside const acting;
        call();
    });
    if (!isLooking)
        lookInTurn();
}

FromOutside::FromOutside() {
    ++outside;
}

FromOutside::~FromOutside() {
    --outside;
}

bool FromOutside::isActing() {
    return outside > 0;
}

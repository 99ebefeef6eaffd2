#pragma once

#include "app/MainWindow.h"
#include "view/MsgBox.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTemporaryDir>

#include <memory>
#include <random>

/// Uses a window as nobody would: any command at any moment, keys and presses wherever the focus is, answers at random,
/// files that come, change and go meanwhile. What it does follows from the seed alone, but for the moments at which
/// background work ends. Every save that the window calls done is read back and compared with the table.
class WindowMonkey {
public:
    explicit WindowMonkey(unsigned seed);
    ~WindowMonkey();

    /// Does one thing, and lets the window work off what follows from it.
    void act();

    int savesCompared() const { return compared; }
    /// What the last actions were, the latest last.
    QStringList const& trail() const { return actions; }
    /// The longest that an action took, in milliseconds, and which one. To be looked at, not to be tested.
    qint64 longest() const { return slowest; }
    QString const& longestAction() const { return slowestAction; }

private:
    using Action = void (WindowMonkey::*)();

    int number(int bound); ///< from 0 to bound - 1
    bool chance(int percent) { return number(100) < percent; }
    QString word();
    QString fileName();
    QByteArray fileContent();

    void note(QString const& action);
    void openWindow();
    void tend();
    QAbstractButton* pressButton(MsgBox const& box);
    QWidget* focus() const;

    void runAnyCommand();
    void pressKeys();
    void typeText();
    void useMouse();
    void answerPrompt();
    void selectSomething();
    void writeFile();
    void openFile();
    void removeFile();
    void save();
    void wait();

    void compareWithFile(TableView const& table);

    std::mt19937 random;
    QTemporaryDir directory;
    std::unique_ptr<MainWindow> window;
    QObject tending; ///< what closes dialogs and menus that wait for a user ends with it
    QStringList actions;
    QElapsedTimer clock;
    qint64 slowest = 0;
    QString slowestAction;
    int compared = 0;
};

#pragma once

#include "app/SingleApplication.h"
#include "appearance/Theme.h"

#include <QStringList>

#include <vector>

class MainWindow;
struct HandOverMessage;

/// The program: one process per user with any number of windows. The first start becomes the primary and runs; a later
/// one is secondary, sends its arguments to the primary and exits, or starts up itself if nobody takes them.
class Application : public SingleApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv, bool allowSecondary, QFlags<Mode> mode, int timeoutMs);
    ~Application() override;

    /// Prepares the preferences, opens the first window and carries the own command line out. The constructor does so
    /// unless this start is secondary.
    void startUp();
    /// Carries a command line out on the active window; element 0 is the program's own path.
    void handleCommandLineArguments(QStringList const& arguments);
    std::vector<MainWindow*> const& getMainWindows() const { return mainWindows; }
    MainWindow* getActiveMainWindow() const { return activeMainWindow; }
    bool event(QEvent* event) override;

public slots:
    /// Carries a later start out, after the questions that are open and the text that the user types.
    void onMessageReceived(quint32 instanceId, QByteArray const& message);
    /// Opens a further window, centred or of the size of the one that asks.
    void createNewInstance(bool centred, QStringList const& files);
    void onThemeChanged(Theme const& theme);
    void onMainWindowClosed();
    void onMainWindowFocusChanged();
    void closeProgram();

private:
    void carryOut(HandOverMessage const& handOver);
    /// Writes the sample table of a first run. True if it was not there.
    bool makeTutorialFile() const;
    MainWindow* addMainWindow(bool centred);
    MainWindow* otherWindowWith(QString const& path, MainWindow const* asking) const;
    void makeMainWindowConnections(MainWindow* window);
    void removeMainWindow(QObject* window);

    MainWindow* activeMainWindow = nullptr;
    std::vector<MainWindow*> mainWindows; ///< in the order of creation
    QString preferenceDirectory;
    QString workingDirectory; ///< of the last start, this one or a later one that handed over
};

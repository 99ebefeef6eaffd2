#include "app/Application.h"

#include "app/CommandLine.h"
#include "app/HandOverMessage.h"
#include "app/MainWindow.h"
#include "app/WindowGeometry.h"
#include "core/PathUtilities.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileOpenEvent>

#include <algorithm>
#include <utility>

Application::Application(int& argc, char** argv, bool allowSecondary, QFlags<Mode> mode, int timeoutMs)
    : SingleApplication(argc, argv, allowSecondary, mode, timeoutMs), workingDirectory(QDir::currentPath()) {
    setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    if (isSecondary()) {
        return;
    }
    // A static library's resources are linked only where they are asked for.
    Q_INIT_RESOURCE(documents);
    connect(this, &SingleApplication::receivedMessage, this, &Application::onMessageReceived);
    setApplicationName(QStringLiteral("Gridwright"));
    setApplicationVersion(QStringLiteral("2.4.4"));
    preferenceDirectory = Utilities::getAppDataLocation();
    handleAppDataInRedundantFolders();
    QDir().mkpath(preferenceDirectory);
    if (makeTutorialFile()) {
        QDir::setCurrent(QDir::homePath());
    }
    MainWindow* const window = addMainWindow(false);
    applyDefaultGeometry(*window);
    onThemeChanged(window->getTheme());
    makeMainWindowConnections(window);
    window->show();
    handleCommandLineArguments(arguments());
    window->activateWindow();
}

Application::~Application() {
    std::vector<MainWindow*> const left = std::exchange(mainWindows, {});
    for (MainWindow* window : left) {
        window->close();
        delete window;
    }
}

// Older versions kept their files one folder deeper, under the program's name once more.
void Application::handleAppDataInRedundantFolders() const {
    QDir redundant(preferenceDirectory + QStringLiteral("/Gridwright"));
    if (!redundant.exists()) {
        return;
    }
    for (QFileInfo const& file : redundant.entryInfoList(QDir::Files | QDir::Hidden)) {
        QString const target = preferenceDirectory + QLatin1Char('/') + file.fileName();
        QFile::remove(target);
        if (!QFile::rename(file.absoluteFilePath(), target)) {
            return; // What cannot be moved stays where it is, with its folder.
        }
    }
    redundant.removeRecursively();
}

bool Application::makeTutorialFile() const {
    QString const path = Utilities::getTutorialFilepath();
    if (QFileInfo::exists(path)) {
        return false;
    }
    QFile::copy(QStringLiteral(":/documents/Tutorial (Fake Data).csv"), path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return true;
}

void Application::handleCommandLineArguments(QStringList const& arguments) {
    if (arguments.size() < 2 || activeMainWindow == nullptr) {
        return;
    }
    CommandLine const line = CommandLine::parse(arguments, workingDirectory);
    MainWindow& window = *activeMainWindow;
    for (QString const& folder : line.folders) {
        window.openFolder(folder);
    }
    window.resize(line.width >= 1 ? line.width : window.width(), line.height >= 1 ? line.height : window.height());
    window.move(line.x >= 0 ? line.x : window.x(), line.y >= 0 ? line.y : window.y());
    window.openFiles(line.files);
    window.activateWindow();
}

void Application::onMessageReceived(quint32, QByteArray const& message) {
    HandOverMessage const handOver = HandOverMessage::parse(message);
    if (handOver.asksForNewWindow()) {
        createNewInstance(true, {});
        return;
    }
    workingDirectory = handOver.workingDirectory;
    handleCommandLineArguments(handOver.arguments);
}

MainWindow* Application::addMainWindow(bool centred) {
    auto* window = new MainWindow;
    activeMainWindow = window;
    mainWindows.push_back(window);
    if (centred) {
        applyDefaultGeometry(*window);
        window->show();
    }
    connect(window, &MainWindow::mainWindowClosedSignal, this, &Application::onMainWindowClosed);
    connect(window, &MainWindow::mainWindowFocusChangedSignal, this, &Application::onMainWindowFocusChanged);
    return window;
}

void Application::createNewInstance(bool centred, QStringList const& files) {
    auto const* asking = qobject_cast<MainWindow*>(sender());
    MainWindow* const window = addMainWindow(centred);
    if (!centred) {
        MainWindow const* const model = asking != nullptr ? asking : mainWindows.front();
        window->resize(model->size());
        window->setWindowState(model->windowState());
        window->show();
    }
    window->openFiles(files);
    makeMainWindowConnections(window);
    window->activateWindow();
}

void Application::makeMainWindowConnections(MainWindow* window) {
    connect(window, &MainWindow::createNewInstanceSignal, this, &Application::createNewInstance);
    connect(window, &MainWindow::setThemeSignal, this, &Application::onThemeChanged);
}

void Application::onThemeChanged(Theme const& theme) {
    setStyleSheet(theme.getStyleSheet());
}

void Application::onMainWindowClosed() {
    removeMainWindow(sender());
}

void Application::removeMainWindow(QObject* window) {
    auto const position = std::find(mainWindows.begin(), mainWindows.end(), window);
    if (position == mainWindows.end()) {
        return;
    }
    mainWindows.erase(position);
    window->deleteLater();
    if (window == activeMainWindow) {
        activeMainWindow = mainWindows.empty() ? nullptr : mainWindows.front();
    }
}

void Application::onMainWindowFocusChanged() {
    auto const position = std::find(mainWindows.begin(), mainWindows.end(), sender());
    if (position != mainWindows.end()) {
        activeMainWindow = *position;
    }
}

// A window that closes leaves the list, so the index steps past the one that slides into its place.
void Application::closeProgram() {
    for (std::size_t i = 0; i < mainWindows.size(); ++i) {
        mainWindows[i]->close();
    }
}

bool Application::event(QEvent* event) {
    if (event->type() == QEvent::FileOpen && activeMainWindow != nullptr) {
        QString const file = static_cast<QFileOpenEvent*>(event)->file();
        if (!file.isEmpty()) {
            activeMainWindow->openFile(file);
        }
    }
    return SingleApplication::event(event);
}

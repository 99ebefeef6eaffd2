#include "app/Application.h"

#include "app/CommandLine.h"
#include "app/HandOverMessage.h"
#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/PreferenceStartup.h"
#include "app/WindowGeometry.h"
#include "core/ModalHold.h"
#include "core/PathUtilities.h"
#include "view/TypingGuard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileOpenEvent>

#include <algorithm>
#include <utility>

Application::Application(int& argc, char** argv, bool allowSecondary, QFlags<Mode> mode, int timeoutMs)
    : SingleApplication(argc, argv, allowSecondary, mode, timeoutMs), workingDirectory(QDir::currentPath()) {
    setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    if (!isSecondary()) {
        startUp();
    }
}

void Application::startUp() {
    // A static library's resources are linked only where they are asked for.
    Q_INIT_RESOURCE(documents);
    connect(this, &SingleApplication::receivedMessage, this, &Application::onMessageReceived);
    setApplicationName(QStringLiteral("Gridwright"));
    setApplicationVersion(QStringLiteral("2.4.4"));
    preferenceDirectory = Utilities::getAppDataLocation();
    PreferenceStartup preferences(preferenceDirectory);
    if (makeTutorialFile()) {
        QDir::setCurrent(QDir::homePath());
    }
    MainWindow* const window = addMainWindow(false);
    applyDefaultGeometry(*window);
    if (preferences.isVersionChanged()) {
        window->setUpdating(true);
        preferences.update(window->getCommands());
    }
    onThemeChanged(window->getTheme());
    makeMainWindowConnections(window);
    window->show();
    window->propagateSettings();
    handleCommandLineArguments(arguments());
    window->activateWindow();
}

Application::~Application() {
    setServing(false);
    std::vector<MainWindow*> const left = std::exchange(mainWindows, {});
    for (MainWindow* window : left) {
        window->close();
        delete window;
    }
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
    if (arguments.size() < 2) {
        return;
    }
    if (activeMainWindow == nullptr) { // the last one closed while the arguments waited
        createNewInstance(true, {});
    }
    CommandLine const line = CommandLine::parse(arguments, workingDirectory);
    MainWindow& window = *activeMainWindow;
    for (QString const& folder : line.folders) {
        window.openFolder(folder);
    }
    applyRequestedGeometry(window, line);
    window.tellMissing(line.missing);
    window.comeToFront(); // first: a file that is open elsewhere brings its own window to the front
    window.openFiles(line.files);
}

void Application::onMessageReceived(quint32, QByteArray const& message) {
    if (ModalHold::isOpen() && activeMainWindow != nullptr) {
        alert(activeMainWindow); // something waits behind the question
    }
    TypingGuard::whenStill(this, [this, message] { carryOut(HandOverMessage::parse(message)); });
}

void Application::carryOut(HandOverMessage const& handOver) {
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
    setServing(true);
    window->setFileHolder([this, window](QString const& path) { return otherWindowWith(path, window); });
    if (centred) {
        applyDefaultGeometry(*window);
        window->show();
        window->propagateSettings();
    }
    connect(window, &MainWindow::mainWindowClosedSignal, this, &Application::onMainWindowClosed);
    connect(window, &MainWindow::mainWindowFocusChangedSignal, this, &Application::onMainWindowFocusChanged);
    return window;
}

MainWindow* Application::otherWindowWith(QString const& path, MainWindow const* asking) const {
    auto const holds = [&](MainWindow const* each) {
        return each != asking && each->getPaneView()->getTableView(path) != nullptr;
    };
    auto const holder = std::find_if(mainWindows.begin(), mainWindows.end(), holds);
    return holder == mainWindows.end() ? nullptr : *holder;
}

void Application::createNewInstance(bool centred, QStringList const& files) {
    auto const* asking = qobject_cast<MainWindow*>(sender());
    MainWindow* const window = addMainWindow(centred);
    if (!centred) {
        MainWindow const* const model = asking != nullptr ? asking : mainWindows.front();
        window->resize(model->size());
        window->setWindowState(model->windowState());
        window->show();
        window->propagateSettings();
    }
    window->activateWindow();
    window->openFiles(files);
    makeMainWindowConnections(window);
}

void Application::makeMainWindowConnections(MainWindow* window) {
    connect(window, &MainWindow::createNewInstanceSignal, this, &Application::createNewInstance);
    connect(window, &MainWindow::setThemeSignal, this, &Application::onThemeChanged);
}

void Application::onThemeChanged(Theme const& theme) {
    QString const sheet = theme.getStyleSheet();
    if (sheet != styleSheet()) { // All widgets of the program are styled anew.
        setStyleSheet(sheet);
    }
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
    // The program is about to end. A start that comes now is to be a new one.
    setServing(!mainWindows.empty());
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
    if (event->type() == QEvent::FileOpen) {
        QString const file = static_cast<QFileOpenEvent*>(event)->file();
        TypingGuard::whenStill(this, [this, file] {
            if (!file.isEmpty() && activeMainWindow != nullptr) {
                activeMainWindow->openFile(file);
            }
        });
    }
    return SingleApplication::event(event);
}

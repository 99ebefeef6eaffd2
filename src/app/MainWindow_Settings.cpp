// The preferences: read from their files, put in force in the window, changed by commands.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/PreferenceStartup.h"
#include "app/PreferenceWatcher.h"
#include "app/TabBar.h"
#include "app/launcher/Launcher.h"
#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/PathUtilities.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QPointer>
#include <QUrl>

void MainWindow::loadPreferences() {
    QStringList const paths{Utilities::getSettingsFilepath(), Utilities::getShortcutsFilepath(),
                            Utilities::getExtensionsFilepath()};
    preferenceWatcher = new PreferenceWatcher(paths, this);
    connect(preferenceWatcher, &PreferenceWatcher::preferenceChangedSignal, this, &MainWindow::onPreferenceChanged);
    loadCommandsFromFile();
    loadSettingsFromFile();
    setupExtensions();
}

// A file that is missing or cannot be read says nothing: what is in force stays.

void MainWindow::loadCommandsFromFile() {
    TableModel model;
    if (PreferenceFiles::load(model, Utilities::getShortcutsFilepath())) {
        PreferenceFiles::addUserShortcuts(model, commands);
    }
}

void MainWindow::loadSettingsFromFile() {
    TableModel model;
    if (PreferenceFiles::load(model, Utilities::getSettingsFilepath())) {
        settings.resetValuesInFile();
        PreferenceFiles::addUserSettings(model, settings);
        theme = settings.getTheme();
    }
}

void MainWindow::setupExtensions() {
    TableModel model;
    if (PreferenceFiles::load(model, Utilities::getExtensionsFilepath())) {
        extensions = PreferenceFiles::userExtensions(model);
    }
}

void MainWindow::onPreferenceChanged(QString const& path) {
    if (updating) {
        return;
    }
    QString const name = QFileInfo(path).fileName();
    if (name == QFileInfo(Utilities::getShortcutsFilepath()).fileName()) {
        loadCommandsFromFile();
    } else if (name == QFileInfo(Utilities::getSettingsFilepath()).fileName()) {
        loadSettingsFromFile();
        propagateSettings();
    } else {
        setupExtensions();
    }
}

void MainWindow::propagateSettings() {
    if (updating) {
        updating = false;
        return;
    }
    theme = settings.getTheme();
    tabBar->setVisible(settings.getValueBool(SettingType::ShowTabBar));
    emit setThemeSignal(theme);
    paneView->propagateSettings(settings);
    if (Launcher* const launcher = paneView->getLauncher()) {
        launcher->setTheme(theme);
    }
}

void MainWindow::toggleSetting(SettingType type) {
    settings.toggleBoolValue(type);
    PreferenceFiles::writeSettingToFile(settings, type);
    propagateSettings();
}

void MainWindow::onSuppressAutoFitWarningsChanged(bool suppress) {
    settings.setValue(SettingType::SuppressAutoFitWarnings, suppress);
    PreferenceFiles::writeSettingToFile(settings, SettingType::SuppressAutoFitWarnings);
}

// The edits of a table that is not saved would be lost: the table is read anew, in the other way.
void MainWindow::commandToggleReadOnly() {
    QPointer<TableView> const table = activeTable;
    if (table->isLoading()) {
        return;
    }
    table->stopEditing();
    if (table && (table->getFilepath().isEmpty() || confirmDiscardUnsavedEditsForReload(table)) && table) {
        table->reloadFileReadOnly(!table->isReadOnly());
        refreshActiveTable();
    }
}

void MainWindow::openPreferenceFile(QString const& path) {
    PreferenceStartup::createMissingFiles();
    openFile(path);
}

void MainWindow::commandEditSettings() {
    openPreferenceFile(Utilities::getSettingsFilepath());
}

void MainWindow::commandEditKeyboardShortcuts() {
    openPreferenceFile(Utilities::getShortcutsFilepath());
}

void MainWindow::commandEditFileExtensionOptions() {
    openPreferenceFile(Utilities::getExtensionsFilepath());
}

void MainWindow::commandOpenPreferenceFileFolder() {
    QDesktopServices::openUrl(QUrl::fromLocalFile(Utilities::getAppDataLocation()));
}

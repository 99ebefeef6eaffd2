// The preferences: read from their files, put in force in the window, changed by commands.

#include "app/MainWindow.h"
#include "app/MenuArrow.h"
#include "app/PaneView.h"
#include "app/PreferenceStartup.h"
#include "app/PreferenceWatcher.h"
#include "app/TabBar.h"
#include "app/launcher/Launcher.h"
#include "commands/PreferenceFiles.h"
#include "commands/PreferenceTable.h"
#include "core/PathUtilities.h"
#include "view/MsgBox.h"
#include "view/SaveFailureMessage.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>
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
        QString const themeBefore = settings.getValueString(SettingType::Theme);
        settings.resetValuesInFile();
        PreferenceFiles::addUserSettings(model, settings);
        settingsWriter.restore(settings);
        theme = settings.getTheme();
        bool const isOther = settings.getValueString(SettingType::Theme) != themeBefore;
        if (isOther && settings.isThemeKnown()) {
            labelBar->clearMessage(); // which may still tell of the one before
        } else if (isOther) {
            tellUnknownTheme();
        }
    }
}

void MainWindow::tellUnknownTheme() {
    constexpr int displayMs = 20000;
    QString const message = tr("There is no theme \"%1\". The theme \"%2\" is used.")
                                .arg(settings.getValueString(SettingType::Theme), theme.getName());
    // A status bar that is not shown yet would show its labels below the message.
    QTimer::singleShot(0, labelBar, [bar = labelBar, message] { bar->showMessage(message, displayMs); });
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
    MenuArrow::tint(*menuBar(), theme.getTextColor());
    paneView->propagateSettings(settings);
    if (Launcher* const launcher = paneView->getLauncher()) {
        launcher->setTheme(theme);
    }
}

void MainWindow::toggleSetting(SettingType type) {
    settings.toggleBoolValue(type);
    putInForce(type);
}

void MainWindow::putInForce(SettingType type) {
    propagateSettings();
    writeSetting(type);
}

void MainWindow::writeSetting(SettingType type) {
    QString const error = settingsWriter.write(settings, type);
    if (!error.isEmpty()) {
        MsgBox::inform(
            this, theme,
            tr("The setting \"%1\" could not be written to the settings file. It stays as you have set it "
               "until the program ends.\n\n%2")
                .arg(settings.get(type).name, buildSaveFailureMessage(Utilities::getSettingsFilepath(), error)));
    }
}

void MainWindow::onSuppressAutoFitWarningsChanged(bool suppress) {
    settings.setValue(SettingType::SuppressAutoFitWarnings, suppress);
    writeSetting(SettingType::SuppressAutoFitWarnings);
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

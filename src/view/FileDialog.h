#pragma once

#include <QStringList>

#include <functional>

class QWidget;

/// The dialogs in which the user chooses files.
namespace FileDialog {

/// Existing files to open; none if the user leaves the dialog.
QStringList filesToOpen(QWidget* parent, QString const& title);
/// A file to save to, `path` being offered; empty if the user leaves the dialog. `filter` holds the kinds of files.
QString fileToSave(QWidget* parent, QString const& title, QString const& path, QString const& filter);

/// Gives what the user chooses, in place of showing a dialog with that title.
using Answer = std::function<QStringList(QString const& title)>;
/// Answers all dialogs from now on, so that tests need no user. An empty function lets dialogs be shown again.
void setAnswer(Answer answer);

} // namespace FileDialog

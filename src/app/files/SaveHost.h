#pragma once

#include "app/launcher/PromptStep.h"
#include "core/ExtensionData.h"

#include <QString>
#include <QStringList>

#include <vector>

class QWidget;
class Settings;
class TableView;
class Theme;

/// What a save needs of the window that its table stands in.
class SaveHost {
public:
    virtual ~SaveHost() = default;

    /// The parent of boxes.
    virtual QWidget* asWidget() = 0;
    virtual Theme const& getTheme() const = 0;
    virtual Settings const& getSettings() const = 0;
    virtual std::vector<ExtensionData> const& getExtensions() const = 0;
    /// Begins a chain of questions in the launcher, on the active table.
    virtual void ask(PromptStep step) = 0;
    virtual TableView* getActiveTable() const = 0;
    virtual void setActiveTable(TableView* table) = 0;
    /// The table of that file in this window, or null.
    virtual TableView* tableOfFile(QString const& path) const = 0;
    virtual bool isOpenInOtherWindow(QString const& path) const = 0;
    virtual bool hasUnsavedEdits(TableView* table) const = 0;
    /// Opens a file that was just written in a tab of its own; null if it cannot be opened.
    virtual TableView* openSavedCopy(QString const& path, bool readOnly) = 0;
    /// Has an open table read its file again, which was just written.
    virtual void readSavedCopy(TableView* table) = 0;
    /// The table is as its file is. `before` is the file that it was on.
    virtual void onTableSaved(TableView* table, QString const& before) = 0;
    /// Tells, without holding anybody up, what a saved file has not got of the former one.
    virtual void tellNotKept(QStringList const& sentences) = 0;
    /// Brings what is told of the table in step, whether it was saved or not.
    virtual void refreshTable(TableView* table) = 0;
};

#pragma once

#include "appearance/Theme.h"
#include "core/Context.h"
#include "core/ExtensionData.h"

#include <QMainWindow>
#include <QStringList>

#include <vector>

class PaneView;
class StatusBar;
class TabBar;
class TableView;

/// One window of the program with all its open tables. A face: it owns the widgets and passes what a person asks on to
/// the unit that knows how.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Files (MainWindow_Files.cpp).

    /// Opens each file in a tab, or goes to its tab if it is open already; what cannot be opened is told and skipped.
    /// The first one becomes the active table. True if any table was taken.
    bool openFiles(QStringList const& paths);
    bool openFile(QString const& path);
    /// Tells that a folder is no table.
    void openFolder(QString const& path);
    /// Closes a table; the window always keeps one.
    bool closeFile(TableView* table);

    // Saving (MainWindow_Save.cpp).

    /// Writes the table to its file; a failure is told and leaves both as they were.
    bool saveFile(TableView* table);

    TableView* getActiveTable() const { return activeTable; }
    PaneView* getPaneView() const { return paneView; }
    StatusBar* getStatusBar() const { return labelBar; }
    Theme const& getTheme() const { return theme; }

public slots:
    void setActiveTable(TableView* table);
    /// What the window and its table are doing now.
    void setContext(Context newContext);
    void commandNewFile();
    void commandOpenFile();
    void commandSaveFile();
    void commandCloseFile();

signals:
    void mainWindowClosedSignal();
    void mainWindowFocusChangedSignal();
    void setThemeSignal(Theme theme);
    void createNewInstanceSignal(bool centred, QStringList files);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildWidgets();
    void buildActions();

    TableView* makeEmptyTableObject();
    TableView* addEmptyTableEditor();
    TableView* addTableEditorFromFile(QString const& path, bool readOnly);
    void addTableEditorFromView(TableView* table);
    /// Opens one file of openFiles; null if it cannot be opened.
    TableView* takeTable(QString const& path);
    void removeTable(TableView* table);
    bool isUntouchedEmptyTable(TableView const* table) const;
    void onTableLoaded(TableView* table);
    /// Warns of a table that may lack the end of its file.
    void tellIfNotReadWhole(TableView const* table);

    void updateWindowTitle();
    void updateStatusBar();
    void onTableSizeChanged(int rows, int cols, int visibleRows, int visibleCols);

    Theme theme;
    std::vector<ExtensionData> extensions;
    PaneView* paneView = nullptr;
    Context context = Context::TableActive; ///< the state by which commands are live
    TabBar* tabBar = nullptr;
    StatusBar* labelBar = nullptr;
    TableView* activeTable = nullptr;
};

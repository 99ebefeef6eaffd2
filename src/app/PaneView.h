#pragma once

#include "view/TableView.h"

#include <QVariantAnimation>
#include <QWidget>

#include <vector>

class EditorPane;
class EditorPaneLoader;
class LoadProgressOverlay;
class QSplitter;
class QStackedWidget;
class Launcher;
class PrevOptionWidget;

/// Holds every table of a window and shows one of them, or the progress of its load, and below it the editor pane with
/// the main cell of that table.
class PaneView : public QWidget {
    Q_OBJECT

public:
    explicit PaneView(QWidget* parent = nullptr);

    /// Takes the table in without showing it.
    void addTable(TableView* table);
    /// Takes the table out without deleting it.
    void removeTable(TableView* table);
    void setActiveTable(TableView* table);
    /// The table whose file is `path`, also by another spelling of the same file; null if it is not open.
    TableView* getTableView(QString const& path) const;
    std::vector<TableView*> getTables() const;
    TableView* getActiveTable() const { return activeTable; }

    /// Passes the state of the window to the active table.
    void setContext(Context newContext);

    // The editor pane.

    EditorPane* getEditorPane() const { return editorPane; }
    bool isEditorPaneShown() const { return editorPaneShown; }
    /// In pixels, also of a pane that is hidden.
    int getEditorPaneHeight() const { return editorPaneHeight; }
    void setEditorPaneHeight(int height) { editorPaneHeight = height; }
    void setLetEditorPaneConsumeNavigationKeystrokes(bool on);

    /// Passes the settings to the editor pane and to each table.
    void propagateSettings(Settings const& settings);
    // The launcher and the strips above it (PaneView_Launcher.cpp).

    /// Shows `newLauncher`, which the pane owns from now on, in the place of the one that is open.
    void setLauncher(Launcher* newLauncher);
    /// Null when none is open.
    Launcher* getLauncher() const { return launcher; }
    void closeLauncher();
    void moveAndResizeLauncher();
    /// Puts an answer below those that are there; the pane owns it from now on.
    void addPrevOption(PrevOptionWidget* option);
    void addPrevOptions(std::vector<PrevOptionWidget*> const& options);
    void clearPrevOptionList();

public slots:
    /// Takes the strip that sends the signal away with those below it, then lets it put its question again.
    void onPrevOptionGoHere();
    void showEditorPane(bool show, bool animate);

signals:
    void addContextSignal(Context flags);
    void removeContextSignal(Context flags);
    /// A background load of `table` has begun.
    void tableLoadBegunSignal(TableView* table);
    /// A background load of `table` has ended and the table shows again.
    void tableLoadedSignal(TableView* table);
    /// The file of `table` cannot be read again, for a reason that is a sentence for the user.
    void tableLoadFailedSignal(TableView* table, QString reason);
    /// `table` is being taken out.
    void tableRemovedSignal(TableView* table);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What stands for one table: the table itself, and in front of it the progress of its load.
    struct Page {
        TableView* table;
        QWidget* stack;
        LoadProgressOverlay* overlay;
    };

    Page const* pageOf(TableView const* table) const;
    void showOverlay(Page const& page, bool on);

    void setupEditorPane();
    void connectLoad(Page const& page);
    void connectEditing(TableView* table);
    void onStartOffCellEdit(bool overwrite, bool atEnd);
    void onStartOffCellEdit(bool overwrite, QKeyEvent* event);
    void onEditingFinished();
    void onEditorPaneFocusIn();
    void onEditorPaneTextChanged();
    void onMainCellChanged(Range const& mainCell);
    void prepareEditorPane(bool overwrite);
    void animateEditorPane(int from, int to);
    void setEditorPaneHeightSlot(QVariant const& height);
    void noteEditorPaneShown(bool shown);

    void onLauncherLeft();
    void dropPrevOptionsFrom(std::size_t index);

    QSplitter* splitter;
    QStackedWidget* pages;
    std::vector<Page> pageList;
    TableView* activeTable = nullptr;
    Context context = Context::TableActive;
    EditorPane* editorPane;
    EditorPaneLoader* loader;
    QVariantAnimation heightAnimation;
    bool editorPaneShown = false;
    int editorPaneHeight = 150; ///< pixels
    Range shownCell;            ///< whose text the pane shows
    bool typedDuringLoad = false;
    bool keepPaneText = false;                  ///< the edit that begins comes from the text in the pane
    Launcher* launcher = nullptr;               ///< takes leave before it goes
    std::vector<PrevOptionWidget*> prevOptions; ///< from the top down
};

#pragma once

#include "core/Context.h"
#include "core/Enumerations.h"
#include "core/RangeVector.h"
#include "view/ContextMenuEntries.h"
#include "view/HeaderAxis.h"
#include "view/KeyRules.h"
#include "view/QuickEdit.h"
#include "view/TableType.h"

#include <QColor>
#include <QPointer>
#include <QTableView>

#include <memory>
#include <vector>

class HeaderView;
class TableDelegate;
class TableModel;

/// What the four views of one table have in common: they turn keys and the mouse into operations on the one TableModel
/// that they share. The selection is the model's; Qt's own is never used. Rows and columns are Model.
class AbstractTableView : public QTableView {
    Q_OBJECT
    Q_PROPERTY(QColor highlightedLineColor READ getHighlightedLineColor WRITE setHighlightedLineColor NOTIFY
                   highlightedLineColorChanged)
    Q_PROPERTY(QColor cellBorderColor READ getCellBorderColor WRITE setCellBorderColor NOTIFY cellBorderColorChanged)

public:
    explicit AbstractTableView(TableType type, QWidget* parent = nullptr);
    ~AbstractTableView() override;

    /// `model` must be a TableModel or null.
    void setModel(QAbstractItemModel* model) override;
    TableModel* tableModel() const { return table; }
    TableType getTableType() const { return tableType; }
    HeaderView* getHorizontalHeaderView() const { return horizontalHeaderView; }
    HeaderView* getVerticalHeaderView() const { return verticalHeaderView; }

    // State of the window and options.

    virtual void setContext(Context newContext);
    Context getContext() const { return context; }
    virtual void setLetEditorPaneConsumeNavigationKeystrokes(bool on);
    /// The context menus of the cells and headers offer the commands among `actions`.
    virtual void setupContextMenus(CommandActions const& actions);
    /// Whether a file is being loaded in the background. Meanwhile the keys are dead and nothing changes the table.
    bool isLoading() const;
    /// Whether an edit is open, over a cell or in the editor pane.
    bool isEditing() const { return editing; }
    /// The next focus that comes for no stated reason is taken, as when the window is activated.
    void setAcceptNextOtherFocus(bool on) { acceptNextOtherFocus = on; }
    /// Ends a drag whose release went to another window.
    void endCutOffDrag();

    // Moving and selecting.

    /// Moves the whole selection; not at all if a part of it would leave the table at the top or left.
    virtual void moveSelectionRelative(int rows, int cols) = 0;
    /// Makes one cell the selection; -1 keeps the main cell's row or column.
    virtual void moveSelectionAbsolute(int row, int col) = 0;
    /// Grows the rectangle that a drag draws to the cell.
    void expandSelection(Range cell);
    void deselectAllButTheMainCell();
    /// The cell at a point of the viewport, flagged if it is the main cell. For a point outside the viewport the cell
    /// just out of sight; row or column are -1 where the table does not reach.
    virtual Range cellAtPos(int x, int y) const;
    Range cellAtPos(QPoint point) const { return cellAtPos(point.x(), point.y()); }
    /// Shows the cells anew. Costs what is on screen and nothing more.
    virtual void refreshView();
    /// Qt would look for cells that begin with a key's text, through the whole table.
    void keyboardSearch(QString const&) override {}

    // Marks over the cells.

    /// Lines along the near edges of rows, where something is to be dropped or inserted.
    virtual void setRowLineHighlightIndexes(std::vector<int> const& rows);
    virtual void setColLineHighlightIndexes(std::vector<int> const& cols);
    void setRowLineHighlightIndex(int row) { setRowLineHighlightIndexes({row}); }
    void setColLineHighlightIndex(int col) { setColLineHighlightIndexes({col}); }
    void clearRowLineHighlightIndexes() { setRowLineHighlightIndexes({}); }
    void clearColLineHighlightIndexes() { setColLineHighlightIndexes({}); }
    /// Borders around the Cells among the ranges.
    virtual void setCellBorderRange(RangeVector const& ranges);
    void setCellBorderRange(Range const& range) { setCellBorderRange(RangeVector{range}); }
    void clearCellBorderRange() { setCellBorderRange(RangeVector()); }
    RangeVector const& getCellBorderRanges() const { return cellBorderRanges; }
    QColor getHighlightedLineColor() const { return highlightedLineColor; }
    void setHighlightedLineColor(QColor const& color);
    QColor getCellBorderColor() const { return cellBorderColor; }
    void setCellBorderColor(QColor const& color);

    // Editing. The main view leads an edit, also one in a band.

    TableDelegate* tableDelegate() const { return delegate; }
    /// Tells this view of the table's edit; the editor is null while the editor pane edits.
    void setEditState(bool open, QuickEdit* editor);
    /// Opens the editor over a cell. With an event it opens as by typing, and the event reaches it.
    void openEditor(QModelIndex const& index);
    void editOnAnyKeyPressed(QModelIndex const& index, QKeyEvent* event);
    /// Lays the editor over its cell anew.
    void placeEditor() { updateEditorGeometries(); }
    /// Closes the editor if it is one of this view's.
    void closeEditorPublic(QWidget* editor);

public slots:
    /// To the next row, in the column where nextColumnWithColumnReset was first called.
    void nextRowWithColumnReset();
    void nextColumnWithColumnReset();
    void previousColumnWithColumnReset();
    /// Asks for an edit of the main cell that keeps its text.
    void editMainCellAppend();

signals:
    void addContextSignal(Context flags);
    void removeContextSignal(Context flags);
    /// An edit of the main cell is wanted, which replaces the text with `overwrite`.
    void startEditingSignal(bool overwrite);
    /// An edit is wanted that begins with a key.
    void startEditingSignal(bool overwrite, QKeyEvent* event);
    void scrollToMainCellSignal(bool ifNeeded, bool minimal);
    void dataChangedSignal(RangeVector ranges);
    void moveCellContentsAbsoluteSignal(RangeVector ranges, Range mainCell, int row, int col);
    void scrollSignal(Direction direction, bool page);
    void selectionExpandingSignal(AbstractTableView* view);
    void highlightedLineColorChanged();
    void cellBorderColorChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

    bool hasContext(Context flag) const;
    /// Whether a drag is drawing a selection, in whichever of the views.
    bool isMousePressed() const;
    HeaderView* headerView(Axis axis) const { return axis == Axis::Rows ? verticalHeaderView : horizontalHeaderView; }
    QScrollBar* scrollBarOf(Axis axis) const;
    /// The axis without a frozen band.
    HeaderAxis plainAxis(Axis axis, HeaderAxis::Frozen frozen = {}) const;
    /// Drops an edit whose editor was never opened.
    virtual void dropPendingEdit();
    /// Whether no edit may begin.
    bool isReadOnlyTable() const;

    Context context = Context::TableActive;
    CommandActions commands;
    bool editing = false;
    bool letEditorPaneConsumeNavigationKeystrokes = true;
    QPointer<QuickEdit> cellEditor; ///< the open editor over a cell, null otherwise
    int columnResetTarget = -1;     ///< the column that the next Enter returns to, -1 for none

private:
    KeyState keyState() const;
    bool carryOut(KeyDecision const& decision, QKeyEvent* event);
    void beginSelection(Range const& cell, bool add);
    void extendSelectionTo(Range const& cell);
    void finishDrag();
    void onCustomContextMenu(QPoint const& point);
    void forwardToEditor(QInputMethodEvent* event);
    void composeInCells(QInputMethodEvent* event);
    void beginEditWith(QString const& text);
    bool isMarked() const;
    void paintLineHighlights(QPainter& painter, Axis axis);
    void paintCellBorders(QPainter& painter);
    void paintComposition(QPainter& painter);
    void paintCompositionIn(QPainter& painter, QModelIndex const& index);

    TableModel* table = nullptr;
    TableDelegate* delegate;
    TableType tableType;
    HeaderView* horizontalHeaderView;
    HeaderView* verticalHeaderView;
    std::unique_ptr<QMouseEvent> pressEventCopy; ///< the press of the running drag
    bool ctrlSelecting = false;                  ///< the running drag adds to the selection
    bool acceptNextOtherFocus = false;
    std::vector<int> rowLineHighlightIndexes;
    std::vector<int> colLineHighlightIndexes;
    RangeVector cellBorderRanges;
    QColor highlightedLineColor = Qt::red;
    QColor cellBorderColor;
    QString preeditText; ///< what an input method composes while no edit is open
    bool startingEditFromInputMethod = false;
};

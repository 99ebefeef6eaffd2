#include "tests/support/MsgBoxAnswers.h"
#include "tests/view/TableFixture.h"
#include "view/CellLengths.h"
#include "view/QuickEdit.h"
#include "view/TableDelegate.h"
#include "view/TypingGuard.h"

#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QStyledItemDelegate>

namespace {

/// A table in a window that keeps its state, as the program does.
class CellEditingTest : public TableFixture {
protected:
    void SetUp() override {
        QObject::connect(&view, &AbstractTableView::addContextSignal, &view,
                         [this](Context flags) { view.setContext(view.getContext() | flags); });
        QObject::connect(&view, &AbstractTableView::removeContextSignal, &view,
                         [this](Context flags) { view.setContext(view.getContext() & ~flags); });
        load(20, 5);
        view.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        view.setFocus();
    }

    QuickEdit* editor() { return view.viewport()->findChild<QuickEdit*>(); }
    void closeOld() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    /// To where the focus is.
    void type(QString const& text) {
        for (QChar const c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        closeOld();
    }
    /// A key of texts that brings none, as one that switches the keyboard's layout.
    void pressSilentKey(QWidget* receiver, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent key(QEvent::KeyPress, 0, modifiers);
        QCoreApplication::sendEvent(receiver, &key);
    }
    QString text(int row, int col) { return model().index(row, col).data(Qt::EditRole).toString(); }
    void setText(int row, int col, QString const& text) { model().setData(model().index(row, col), text); }
    std::pair<int, int> mainCell() { return {model().getMainCell().row, model().getMainCell().col}; }
    bool isClosed() {
        return !view.isEditing() && editor() == nullptr && !view.getPendingEdit() &&
               !hasAnyContext(view.getContext(), Context::CellEditing);
    }
    void compose(QWidget* receiver, QString const& preedit, QString const& commit = QString()) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(receiver, &event);
    }

    MsgBoxAnswers answers;
};

} // namespace

TEST_F(CellEditingTest, TypingReplacesTheTextAndAnEndingKeyKeepsIt) {
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::pair<int, int> to;
    };
    Case const cases[] = {{Qt::Key_Return, Qt::NoModifier, {3, 1}},
                          {Qt::Key_Enter, Qt::KeypadModifier, {3, 1}},
                          {Qt::Key_Escape, Qt::NoModifier, {2, 1}},
                          {Qt::Key_Tab, Qt::NoModifier, {2, 2}},
                          {Qt::Key_Backtab, Qt::ShiftModifier, {2, 0}}};
    for (Case const& each : cases) {
        SCOPED_TRACE(each.key);
        setText(2, 1, QStringLiteral("old"));
        select(2, 1);
        type(QStringLiteral("new"));
        ASSERT_NE(editor(), nullptr);
        EXPECT_EQ(editor()->text(), QStringLiteral("new"));
        press(each.key, each.modifiers);
        EXPECT_EQ(text(2, 1), QStringLiteral("new"));
        EXPECT_EQ(mainCell(), each.to);
        EXPECT_TRUE(isClosed());
        view.undo();
        EXPECT_EQ(text(2, 1), QStringLiteral("old"));
    }
}

TEST_F(CellEditingTest, AsksBeforeItChangesCellsThatWereTakenOutOfTheSelection) {
    struct Case {
        char const* answer;
        char const* out; ///< what the cell holds in the end
        char const* in;
    };
    for (Case const& each :
         {Case{"Leave Them Out", "out", "new"}, {"Change All", "new", "new"}, {"Cancel", "out", "in"}}) {
        SCOPED_TRACE(each.answer);
        setText(2, 1, QStringLiteral("out"));
        setText(2, 2, QStringLiteral("in"));
        select(1, 1);
        view.selectEntireTable();
        ASSERT_TRUE(model().removeCellFromSelection(2, 1));
        type(QStringLiteral("new")); // its letters are no answers
        EXPECT_EQ(text(2, 1), QStringLiteral("new"));
        answers.next(QString::fromLatin1(each.answer), [&] {
            EXPECT_TRUE(FromOutside::isActing()); // the next text may follow at once
            view.stopEditing();
            EXPECT_EQ(text(2, 1), QStringLiteral("new"));
        });
        press(Qt::Key_Return);
        EXPECT_TRUE(isClosed());
        EXPECT_EQ(text(2, 1), QString::fromLatin1(each.out));
        EXPECT_EQ(text(2, 2), QString::fromLatin1(each.in));
        EXPECT_EQ(answers.texts().last(), "1 cell that was taken out of the selection would be changed too.");
        while (view.undoStack()->canUndo())
            view.undo();
    }
}

TEST_F(CellEditingTest, TheCaretIsInSightInABandThatIsWiderThanTheWindow) {
    view.setAutoFitColWidth(true, false);
    view.setFreezeHeaderColumns(true, false);
    view.resize(300, 300);
    for (Qt::LayoutDirection const direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        view.setLayoutDirection(direction);
        select(2, 0);
        type(QString(120, u'm'));
        QuickEdit* const edit = view.findChild<QuickEdit*>();
        ASSERT_NE(edit, nullptr);
        EXPECT_TRUE(edit->parentWidget()->rect().contains(edit->geometry()));
        edit->grab(); // a line edit scrolls to its caret as it is painted
        EXPECT_TRUE(edit->rect().intersects(edit->inputMethodQuery(Qt::ImCursorRectangle).toRect()));
        press(Qt::Key_Escape);
        view.undo();
    }
}

TEST_F(CellEditingTest, APressWhoseReleaseAQuestionHasTakenLeavesTheKeysAlive) {
    select(1, 1);
    view.selectEntireTable();
    ASSERT_TRUE(model().removeCellFromSelection(2, 1));
    type(QStringLiteral("new"));
    answers.next(QStringLiteral("Cancel"));
    TableFixture::press(4, 3); // and released over the box
    QCoreApplication::processEvents();
    EXPECT_EQ(mainCell(), std::pair(4, 3));
    key(Qt::Key_Down);
    EXPECT_EQ(mainCell(), std::pair(5, 3));
}

TEST_F(CellEditingTest, AppendingKeepsTheTextAndTheCaretAtItsEnd) {
    select(2, 1);
    view.editMainCellAppend();
    type(QStringLiteral("!"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up); // for the table, and dead there
    EXPECT_TRUE(view.isEditing());
    click(4, 3);
    closeOld();
    EXPECT_EQ(text(2, 1), QStringLiteral("2:1!"));
    EXPECT_EQ(mainCell(), std::pair(4, 3));
    EXPECT_TRUE(isClosed());
}

TEST_F(CellEditingTest, TheCaretOfAnAppendedTextStandsBehindItAndInSightInEitherDirection) {
    QString const hebrew = QStringLiteral("\u05d0\u05d1\u05d2");
    for (QString const& content : {QStringLiteral("abc"), hebrew, hebrew.repeated(200), QString(600, u'a')}) {
        setText(2, 1, content);
        select(2, 1);
        view.editMainCellAppend();
        ASSERT_NE(editor(), nullptr);
        EXPECT_EQ(editor()->cursorPosition(), content.size());
        EXPECT_FALSE(editor()->hasSelectedText());
        editor()->grab(); // a line edit scrolls to its caret as it is painted
        QRect const caret = editor()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        EXPECT_TRUE(editor()->rect().intersects(caret));
        type(QStringLiteral("!"));
        press(Qt::Key_Return);
        EXPECT_EQ(text(2, 1), content + u'!');
    }
}

TEST_F(CellEditingTest, AKeyWithoutACharacterNeitherBeginsNorRestartsAnEdit) {
    select(2, 1);
    for (Qt::KeyboardModifiers const modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier)}) {
        pressSilentKey(&view, modifiers);
        EXPECT_TRUE(isClosed());
    }
    type(QStringLiteral("a"));
    QPointer<QuickEdit> const open = editor();
    pressSilentKey(open);
    // A character that the editor has no use for comes back to the table as well.
    open->setReadOnly(true);
    type(QStringLiteral("b"));
    open->setReadOnly(false);
    type(QStringLiteral("c"));
    EXPECT_EQ(editor(), open);
    press(Qt::Key_Return);
    EXPECT_EQ(text(2, 1), QStringLiteral("ac"));
    EXPECT_EQ(view.undoStack()->count(), 1);
}

TEST_F(CellEditingTest, TypingInManyCellsShowsInAllAndOneUndoRestoresAll) {
    model().setNumBufferRows(600);
    RangeVector cells;
    for (int row = 0; row < 500; ++row)
        cells.push_back(Range(row, 0, RangeIndexType::Model));
    cells.front().hasMainCell = true;
    view.setMainCell(cells.front());
    model().setSelection(cells, true);
    type(QStringLiteral("xy"));
    EXPECT_EQ(text(1, 0), QStringLiteral("xy"));
    EXPECT_EQ(text(499, 0), QStringLiteral("xy"));
    press(Qt::Key_Escape);
    EXPECT_EQ(text(0, 0), QStringLiteral("xy"));
    EXPECT_EQ(view.undoStack()->count(), 1);
    view.undo();
    EXPECT_EQ(text(0, 0), QStringLiteral("0:0"));
    EXPECT_EQ(text(19, 0), QStringLiteral("19:0"));
    EXPECT_EQ(model().rowCountRaw(), 20);
}

TEST_F(CellEditingTest, AnUnchangedTextLeavesNoUndoAndStoppingWithoutCommitBringsTheTextBack) {
    select(2, 1);
    type(QStringLiteral("2:1"));
    press(Qt::Key_Return);
    view.editMainCellAppend();
    press(Qt::Key_Return);
    EXPECT_EQ(view.undoStack()->count(), 0);
    view.selectRow(2);
    type(QStringLiteral("x"));
    EXPECT_EQ(text(2, 4), QStringLiteral("x"));
    view.stopEditing(false);
    closeOld();
    EXPECT_EQ(text(2, 4), QStringLiteral("2:4"));
    EXPECT_EQ(view.undoStack()->count(), 0);
    EXPECT_TRUE(isClosed());
}

TEST_F(CellEditingTest, ALongCellIsReplacedByTypingAndAskedForBeforeItIsOpened) {
    QString const longText(40000, u'a');
    QSignalSpy const panes(&view, &TableView::showEditorPaneSignal);
    setText(2, 1, longText);
    select(2, 1);
    answers.next(QStringLiteral("Don't Open"));
    view.editMainCellAppend();
    ASSERT_EQ(answers.texts().size(), 1);
    EXPECT_EQ(answers.texts().first(),
              QStringLiteral("This is a large cell which can only be edited in the editor pane.\n"
                             "Would you like to open the editor pane?"));
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(panes.count(), 0);

    type(QStringLiteral("b"));
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("b"));
    press(Qt::Key_Return);
    EXPECT_EQ(text(2, 1), QStringLiteral("b"));
    view.undo();
    EXPECT_EQ(text(2, 1), longText);
    // The longest text that is edited in place.
    setText(2, 1, longText.left(CellLengths::longestInPlace));
    view.editMainCellAppend();
    EXPECT_TRUE(view.isEditing());
    press(Qt::Key_Escape);

    setText(2, 1, longText);
    answers.next(QStringLiteral("Open"));
    QSignalSpy const starts(&view, qOverload<bool, bool>(&TableView::startOffCellEditSignal));
    view.editMainCellAppend();
    EXPECT_EQ(panes.count(), 1);
    EXPECT_EQ(starts.value(0), (QVariantList{false, false}));
    EXPECT_TRUE(view.takeLargeCellCursorAtFront());
    EXPECT_FALSE(view.takeLargeCellCursorAtFront());
    view.stopEditing();
}

TEST_F(CellEditingTest, NothingBeginsInAReadOnlyTableOrWithoutAnEditor) {
    model().setReadOnly(true);
    type(QStringLiteral("x"));
    view.editMainCellAppend();
    compose(&view, QString(), QStringLiteral("x"));
    EXPECT_TRUE(isClosed());
    model().setReadOnly(false);
    struct : QStyledItemDelegate {
        QWidget* createEditor(QWidget*, QStyleOptionViewItem const&, QModelIndex const&) const override {
            return nullptr;
        }
    } refusing;
    view.setItemDelegate(&refusing);
    type(QStringLiteral("x"));
    EXPECT_TRUE(isClosed());
    view.editMainCellAppend();
    EXPECT_TRUE(isClosed());
    view.setItemDelegate(view.tableDelegate());
}

TEST_F(CellEditingTest, AFailedSaveAfterAnEditKeepsTheEditAndSaysFileAndReason) {
    QSignalSpy const clean(&view, &TableView::undoStackCleanChangedSignal);
    answers.next(QStringLiteral("OK"));
    QObject::connect(view.undoStack(), &QUndoStack::indexChanged, &view, [this](int index) {
        if (index == 1)
            emit model().autoSaveFailedSignal(QStringLiteral("/dir/a.csv"), QStringLiteral("No space left"));
    });
    select(2, 1);
    type(QStringLiteral("x"));
    press(Qt::Key_Return);
    EXPECT_EQ(text(2, 1), QStringLiteral("x"));
    EXPECT_EQ(answers.texts().value(0),
              QStringLiteral("File failed to save.\n\nFile: /dir/a.csv\nReason: No space left"));
    EXPECT_TRUE(view.hasAutoSaveFailed());
    EXPECT_EQ(clean.last(), QVariantList{false});
    view.undoStack()->setClean();
    EXPECT_FALSE(view.hasAutoSaveFailed());
}

TEST_F(CellEditingTest, HeaderCellsAreEditedInBoldInTheColoursOfTheTheme) {
    view.tableDelegate()->setNumHeaderRows(1);
    view.tableDelegate()->setHighlightHeaderRows(true);
    for (int const row : {0, 1}) {
        select(row, 1);
        view.editMainCellAppend();
        ASSERT_NE(editor(), nullptr);
        EXPECT_EQ(editor()->font().bold(), row == 0);
        EXPECT_EQ(editor()->geometry(), view.visualRect(model().index(row, 1)));
        press(Qt::Key_Escape);
    }
}

using InputMethodTest = CellEditingTest;

TEST_F(InputMethodTest, ACommittedTextBeginsAnEditThatHoldsIt) {
    select(2, 1);
    compose(&view, QString(), QStringLiteral("\u304b\u306a"));
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("\u304b\u306a"));
    press(Qt::Key_Return);
    EXPECT_EQ(text(2, 1), QStringLiteral("\u304b\u306a"));
}

TEST_F(InputMethodTest, ACompositionIsPaintedInTheSelectedCellsAndTakenBack) {
    auto const picture = [this](int row, int col) {
        return view.viewport()->grab(view.visualRect(model().index(row, col))).toImage();
    };
    RangeVector cells{Range(2, 1, RangeIndexType::Model), Range(3, 1, RangeIndexType::Model)};
    cells.front().hasMainCell = true;
    model().setSelection(cells, true);
    QImage const selected = picture(3, 1);
    QImage const other = picture(4, 1);
    compose(&view, QStringLiteral("WWWW"));
    EXPECT_NE(picture(3, 1), selected);
    EXPECT_EQ(picture(4, 1), other);
    EXPECT_TRUE(isClosed());
    compose(&view, QString());
    EXPECT_EQ(picture(3, 1), selected);
    EXPECT_EQ(text(2, 1), QStringLiteral("2:1"));
}

TEST_F(InputMethodTest, AnOpenEditorGetsWhatTheTableReceivesAndPreviewsIt) {
    RangeVector cells{Range(2, 1, RangeIndexType::Model), Range(3, 1, RangeIndexType::Model)};
    cells.front().hasMainCell = true;
    model().setSelection(cells, true);
    type(QStringLiteral("a"));
    compose(editor(), QStringLiteral("pre"));
    EXPECT_EQ(text(3, 1), QStringLiteral("apre"));
    compose(editor(), QString());
    EXPECT_EQ(text(3, 1), QStringLiteral("a"));
    // An editor that is open and has no focus is served through the table.
    QuickEdit* const edit = editor();
    edit->removeEventFilter(view.tableDelegate());
    view.setFocus();
    ASSERT_FALSE(edit->hasFocus());
    compose(&view, QString(), QStringLiteral("b"));
    EXPECT_EQ(text(3, 1), QStringLiteral("ab"));
    view.stopEditing();
    EXPECT_EQ(text(2, 1), QStringLiteral("ab"));
}

TEST_F(InputMethodTest, TheCandidatesStandUnderTheMainCell) {
    select(2, 1);
    QRect const cell = view.visualRect(model().index(2, 1));
    QInputMethodQueryEvent query(Qt::ImCursorRectangle);
    QCoreApplication::sendEvent(&view, &query);
    EXPECT_EQ(query.value(Qt::ImCursorRectangle).toRect().topLeft(),
              view.viewport()->mapToParent(cell.bottomLeft() + QPoint(0, 1)));
    EXPECT_TRUE(view.testAttribute(Qt::WA_InputMethodEnabled));
}

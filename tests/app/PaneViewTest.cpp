#include "app/PaneView.h"

#include "tests/support/MsgBoxAnswers.h"
#include "view/EditorPane.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// A window's middle with one table of 20 by 5 cells.
class PaneViewTest : public testing::Test {
protected:
    void SetUp() override {
        QObject::connect(&panes, &PaneView::addContextSignal, [this](Context flags) { setContext(context | flags); });
        QObject::connect(&panes, &PaneView::removeContextSignal,
                         [this](Context flags) { setContext(context & ~flags); });
        view = addTable();
        panes.setActiveTable(view);
        panes.resize(600, 500);
        panes.show();
        panes.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panes));
        view->setFocus();
    }

    TableView* addTable() {
        auto* const table = new TableView;
        table->tableModel()->setMinNumTableRows(20);
        table->tableModel()->setMinNumTableCols(5);
        panes.addTable(table);
        return table;
    }
    void setContext(Context newContext) {
        context = newContext;
        panes.setContext(context);
    }
    TableModel& model() { return *view->tableModel(); }
    EditorPane& pane() { return *panes.getEditorPane(); }
    QString text(int row, int col) { return model().index(row, col).data(Qt::EditRole).toString(); }
    void setText(int row, int col, QString const& text) { model().setData(model().index(row, col), text); }
    void go(int row, int col) {
        view->moveSelectionAbsolute(row, col);
        QCoreApplication::processEvents();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void clickPane(QPoint at) { QTest::mouseClick(pane().viewport(), Qt::LeftButton, {}, at); }

    Context context = Context::TableActive;
    PaneView panes;
    TableView* view = nullptr;
    MsgBoxAnswers answers;
};

QString lines(int length) {
    return QStringLiteral("0123456789\n").repeated(length / 11 + 1).left(length);
}

} // namespace

TEST_F(PaneViewTest, ThePaneShowsTheMainCellOfTheActiveTable) {
    setText(1, 1, QStringLiteral("one\ntwo"));
    panes.showEditorPane(true, false);
    go(1, 1);
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("one\ntwo"));
    TableView* const second = addTable();
    panes.setActiveTable(second);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().toPlainText(), QString());
    panes.setActiveTable(view);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("one\ntwo"));
    panes.removeTable(view);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().toPlainText(), QString());
    delete view;
}

TEST_F(PaneViewTest, ThePaneOpensAndClosesAndRemembersItsHeight) {
    auto const* const splitter = panes.findChild<QSplitter*>();
    auto const height = [&] { return pane().isHidden() ? 0 : splitter->sizes().at(1); };
    EXPECT_EQ(splitter->handleWidth(), 5);
    EXPECT_EQ(height(), 0);
    panes.setEditorPaneHeight(180);
    for (bool const animate : {false, true}) {
        panes.showEditorPane(true, animate);
        EXPECT_TRUE(hasAnyContext(context, Context::EditorPaneShown));
        EXPECT_TRUE(QTest::qWaitFor([&] { return height() == 180; }));
        panes.showEditorPane(false, animate);
        EXPECT_FALSE(hasAnyContext(context, Context::EditorPaneShown));
        EXPECT_TRUE(QTest::qWaitFor([&] { return height() == 0; }));
        EXPECT_EQ(panes.getEditorPaneHeight(), 180);
    }
    panes.showEditorPane(true, false);
    for (int const dragged : {120, 0, 150}) { // by the handle, which also closes and opens it
        panes.findChild<QSplitter*>()->setSizes({splitter->height() - dragged, dragged});
        QTest::mouseRelease(splitter->handle(1), Qt::LeftButton);
        EXPECT_EQ(hasAnyContext(context, Context::EditorPaneShown), dragged > 0);
        EXPECT_EQ(panes.isEditorPaneShown(), dragged > 0);
        EXPECT_EQ(panes.getEditorPaneHeight(), dragged > 0 ? height() : 120);
    }
}

TEST_F(PaneViewTest, TypingGoesToThePaneAndToAllSelectedCells) {
    setText(1, 1, QStringLiteral("old"));
    setText(2, 1, QStringLiteral("other"));
    panes.showEditorPane(true, false);
    view->moveSelectionAbsolute(1, 1); // not shown in the pane yet when the first key comes
    model().addCellToSelection(Range(2, 1, RangeIndexType::Model));
    key(Qt::Key_A);
    QCoreApplication::processEvents();
    ASSERT_TRUE(pane().hasFocus());
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("a"));
    key(Qt::Key_Return);
    key(Qt::Key_B);
    EXPECT_EQ(text(1, 1), QStringLiteral("a\nb"));
    EXPECT_EQ(text(2, 1), QStringLiteral("a\nb"));
    key(Qt::Key_Escape);
    EXPECT_TRUE(view->hasFocus());
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(view->undoStack()->count(), 1);
    view->undo();
    EXPECT_EQ(text(1, 1), QStringLiteral("old"));
    EXPECT_EQ(text(2, 1), QStringLiteral("other"));
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("old"));
}

TEST_F(PaneViewTest, AKeyWithoutACharacterLeavesTheCellAndTheOpenEditAlone) {
    setText(1, 1, QStringLiteral("old"));
    panes.showEditorPane(true, false);
    go(1, 1);
    auto const pressSilentKey = [](Qt::KeyboardModifiers modifiers) {
        QKeyEvent press(QEvent::KeyPress, 0, modifiers);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &press);
    };
    pressSilentKey(Qt::NoModifier);
    pressSilentKey(Qt::ShiftModifier);
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(text(1, 1), QStringLiteral("old"));
    key(Qt::Key_A);
    pressSilentKey(Qt::NoModifier);
    key(Qt::Key_B);
    key(Qt::Key_Escape);
    EXPECT_EQ(text(1, 1), QStringLiteral("ab"));
    EXPECT_EQ(view->undoStack()->count(), 1);
}

TEST_F(PaneViewTest, OnlyWhatTheUserChangesInACellChanges) {
    model().setEncoding(EncodingType::Utf16LE); // which holds halves of pairs too
    QString const texts[] = {QStringLiteral("a\u00a0b\r\nc\rd\ne"),
                             QStringLiteral("\r\n\r\n"),
                             QStringLiteral("a\u2028b\u2029c\ufdd0d\ufdd1e"),
                             QStringLiteral("\ufeffa\ufffc\ufffd\tb"),
                             QChar(0) + QStringLiteral("a\x01\x7f"),
                             QChar(0xd83d) + QStringLiteral("a") + QChar(0xde00),
                             QStringLiteral("\U0001f600b")};
    struct Case {
        std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>> keys;
        QString before; ///< what the keys put in front
        QString behind;
    };
    Case const cases[] = {
        {{{Qt::Key_X, Qt::NoModifier}}, {}, QStringLiteral("x")},
        {{{Qt::Key_Home, Qt::ControlModifier}, {Qt::Key_Y, Qt::NoModifier}}, QStringLiteral("y"), {}},
        {{{Qt::Key_X, Qt::NoModifier}, {Qt::Key_Backspace, Qt::NoModifier}}, {}, {}},
        {{{Qt::Key_X, Qt::NoModifier}, {Qt::Key_Z, Qt::ControlModifier}}, {}, {}},
        {{{Qt::Key_V, Qt::ControlModifier}}, {}, QStringLiteral("p\u00a0q")},
        {{{Qt::Key_A, Qt::ControlModifier}, {Qt::Key_C, Qt::ControlModifier}}, {}, {}},
        {{{Qt::Key_A, Qt::ControlModifier}, {Qt::Key_Delete, {}}, {Qt::Key_Z, Qt::ControlModifier}}, {}, {}},
    };
    for (bool const inPane : {true, false}) {
        panes.showEditorPane(inPane, false);
        for (QString const& stored : texts) {
            setText(1, 1, stored);
            ASSERT_EQ(text(1, 1), stored);
            for (Case const& each : cases) {
                SCOPED_TRACE(stored.toStdString() + (inPane ? " in the pane, case " : " in the grid, case ") +
                             std::to_string(&each - cases));
                QApplication::clipboard()->setText(QStringLiteral("p\u00a0q"));
                go(0, 0);
                go(1, 1);
                view->editMainCellAppend();
                for (auto const& [pressed, modifiers] : each.keys)
                    key(pressed, pressed == Qt::Key_Home && !inPane ? Qt::NoModifier : modifiers);
                key(Qt::Key_Escape);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                EXPECT_EQ(text(1, 1), each.before + stored + each.behind);
                EXPECT_EQ(view->undoStack()->count(), each.before.isEmpty() && each.behind.isEmpty() ? 0 : 1);
                view->undo();
                view->undoStack()->clear();
                EXPECT_EQ(text(1, 1), stored);
            }
        }
    }
}

TEST_F(PaneViewTest, LineBreaksThatAreTypedOrPastedAreLineFeeds) {
    panes.showEditorPane(true, false);
    setText(1, 1, QStringLiteral("a\r\nb"));
    go(1, 1);
    view->editMainCellAppend();
    key(Qt::Key_Return);
    key(Qt::Key_Return, Qt::ShiftModifier);
    QApplication::clipboard()->setText(QStringLiteral("c\r\nd\u2028e\u00a0f"));
    key(Qt::Key_V, Qt::ControlModifier);
    key(Qt::Key_Escape);
    EXPECT_EQ(text(1, 1), QStringLiteral("a\r\nb\n\nc\nd\ne\u00a0f"));
    // What is copied in the pane is the text itself.
    clickPane(QPoint(5, 5));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("a\nb\n\nc\nd\ne\u00a0f"));
}

TEST_F(PaneViewTest, AnEditOfALongCellLeavesItsLineBreaksAlone) {
    panes.showEditorPane(true, false);
    QString const stored = QStringLiteral("0123456789\u00a0\r\n").repeated(10000);
    setText(1, 1, stored);
    go(1, 1);
    view->editMainCellAppend();
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane().document()->isUndoRedoEnabled(); }));
    key(Qt::Key_X);
    EXPECT_EQ(text(1, 1), u'x' + stored);
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Escape);
    EXPECT_EQ(text(1, 1), stored);
    EXPECT_EQ(view->undoStack()->count(), 0);
}

TEST_F(PaneViewTest, NavigationKeysLeaveThePaneIfTheyAreNotItsOwn) {
    panes.setLetEditorPaneConsumeNavigationKeystrokes(false);
    panes.showEditorPane(true, false);
    go(1, 1);
    key(Qt::Key_A);
    key(Qt::Key_Tab);
    EXPECT_EQ(text(1, 1), QStringLiteral("a"));
    EXPECT_EQ(model().getMainCell().col, 2);
    EXPECT_TRUE(view->hasFocus());
    key(Qt::Key_B);
    key(Qt::Key_Return);
    EXPECT_EQ(text(1, 2), QStringLiteral("b"));
    EXPECT_EQ(model().getMainCell(), Range(2, 1, RangeIndexType::Model));
    key(Qt::Key_C);
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(text(2, 1), QStringLiteral("c"));
    EXPECT_EQ(model().getMainCell(), Range(2, 0, RangeIndexType::Model));
}

TEST_F(PaneViewTest, AClickBeginsAnEditAtItsPlaceAndAClickElsewhereEndsIt) {
    setText(1, 1, QStringLiteral("abcdef"));
    panes.showEditorPane(true, false);
    go(1, 1);
    QTextCursor third(pane().document());
    third.setPosition(3);
    clickPane(pane().cursorRect(third).center());
    QCoreApplication::processEvents();
    ASSERT_TRUE(view->isEditing());
    EXPECT_EQ(pane().textCursor().position(), 3);
    key(Qt::Key_X);
    EXPECT_EQ(text(1, 1), QStringLiteral("abcxdef"));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(model().index(3, 3)).center());
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(model().getMainCell(), Range(3, 3, RangeIndexType::Model));
    EXPECT_EQ(view->undoStack()->count(), 1);

    // An edit is also one that no click has begun.
    pane().setFocus(Qt::TabFocusReason);
    key(Qt::Key_Y);
    QCoreApplication::processEvents();
    EXPECT_EQ(text(3, 3), QStringLiteral("y"));
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("y"));
    QPushButton other(&panes);
    other.setFocusPolicy(Qt::StrongFocus);
    other.setGeometry(0, 0, 50, 20);
    other.show();
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_FALSE(view->isEditing());
}

TEST_F(PaneViewTest, AMoveStopsTheLoadOfALongCell) {
    panes.showEditorPane(true, false);
    setText(1, 1, lines(300000));
    setText(2, 1, QStringLiteral("short"));
    go(1, 1);
    go(2, 1);
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("short"));
    EXPECT_TRUE(pane().document()->isUndoRedoEnabled());
    // What is typed into a cell whose load still runs replaces it.
    go(1, 1);
    key(Qt::Key_A);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane().document()->isUndoRedoEnabled(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("a"));
    EXPECT_EQ(text(1, 1), QStringLiteral("a"));
}

TEST_F(PaneViewTest, ALongCellOpensThePaneWithTheCursorAtItsFrontAndAShortOneAtItsEnd) {
    setText(1, 1, lines(40000));
    setText(2, 1, QStringLiteral("short"));
    go(1, 1);
    answers.next(QStringLiteral("Open"));
    view->editMainCellAppend();
    QCoreApplication::processEvents();
    EXPECT_TRUE(panes.isEditorPaneShown());
    EXPECT_TRUE(pane().hasFocus());
    EXPECT_EQ(pane().textCursor().position(), 0);
    EXPECT_EQ(pane().toPlainText().size(), 40000);
    key(Qt::Key_Escape);
    go(2, 1);
    view->editMainCellAppend();
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().textCursor().position(), 5);
    key(Qt::Key_Escape);
    EXPECT_EQ(view->undoStack()->count(), 0);
}

TEST_F(PaneViewTest, ACommittedTextOfAnInputMethodGoesToThePane) {
    panes.showEditorPane(true, false);
    setText(1, 1, QStringLiteral("old"));
    go(1, 1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("\u304b"));
    QCoreApplication::sendEvent(view, &event);
    QCoreApplication::processEvents();
    EXPECT_EQ(pane().toPlainText(), QStringLiteral("\u304b"));
    EXPECT_EQ(text(1, 1), QStringLiteral("\u304b"));
    panes.showEditorPane(false, false);
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(text(1, 1), QStringLiteral("\u304b"));
}

TEST_F(PaneViewTest, ThePaneOfAReadOnlyTableTakesNothing) {
    panes.showEditorPane(true, false);
    model().setReadOnly(true);
    go(0, 0);
    model().onMainCellChanged();
    clickPane(QPoint(5, 5));
    key(Qt::Key_A);
    EXPECT_FALSE(view->isEditing());
    EXPECT_EQ(pane().toPlainText(), QString());
}

#include "view/EditorPane.h"

#include "view/EditorPaneLoader.h"
#include "view/PaneKeys.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int atOnce = 65536;

QString lines(int length) {
    return QStringLiteral("0123456789\n").repeated(length / 11 + 1).left(length);
}

} // namespace

TEST(PaneKeys, TabAndEnterMoveOrStayAsTheSettingSays) {
    using A = PaneKeyAction;
    struct Case {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        A leaving;
        A consuming;
    };
    Case const cases[] = {
        {Qt::Key_Tab, Qt::NoModifier, A::NextColumn, A::Base},
        {Qt::Key_Tab, Qt::ControlModifier, A::InsertTab, A::Base},
        {Qt::Key_Tab, Qt::AltModifier, A::Base, A::Base},
        {Qt::Key_Backtab, Qt::ShiftModifier, A::PreviousColumn, A::Base},
        {Qt::Key_Return, Qt::NoModifier, A::NextRow, A::Base},
        {Qt::Key_Return, Qt::ControlModifier, A::LineBreak, A::Base},
        {Qt::Key_Return, Qt::ShiftModifier, A::Base, A::Base},
        {Qt::Key_Enter, Qt::NoModifier, A::NextRow, A::Base},
        {Qt::Key_Enter, Qt::KeypadModifier, A::NextRow, A::Base},
        {Qt::Key_Enter, Qt::KeypadModifier | Qt::ControlModifier, A::LineBreak, A::Base},
        {Qt::Key_Escape, Qt::NoModifier, A::Finish, A::Finish},
        {Qt::Key_Escape, Qt::ShiftModifier, A::Base, A::Base},
        {Qt::Key_A, Qt::NoModifier, A::Base, A::Base},
    };
    for (Case const& each : cases) {
        SCOPED_TRACE(QKeySequence(each.key | each.modifiers).toString().toStdString());
        QKeyEvent const event(QEvent::KeyPress, each.key, each.modifiers);
        EXPECT_EQ(paneKeyAction(event, false), each.leaving);
        EXPECT_EQ(paneKeyAction(event, true), each.consuming);
    }
}

TEST(EditorPane, KeysThatLeaveEndTheEditBeforeTheyMove) {
    EditorPane pane;
    pane.setLetEditorPaneConsumeNavigationKeystrokes(false);
    QStringList calls;
    QObject::connect(&pane, &EditorPane::editingFinishedSignal, [&] { calls << QStringLiteral("finish"); });
    QObject::connect(&pane, &EditorPane::nextRowWithColumnResetSignal, [&] { calls << QStringLiteral("down"); });
    QObject::connect(&pane, &EditorPane::nextColumnWithColumnResetSignal, [&] { calls << QStringLiteral("right"); });
    QObject::connect(&pane, &EditorPane::previousColumnWithColumnResetSignal, [&] { calls << QStringLiteral("left"); });
    QTest::keyClick(&pane, Qt::Key_Return);
    QTest::keyClick(&pane, Qt::Key_Tab);
    QTest::keyClick(&pane, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(&pane, Qt::Key_Escape);
    EXPECT_EQ(calls.join(' '), QStringLiteral("finish down finish right finish left finish"));
    QTest::keyClick(&pane, Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClick(&pane, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("\n\t"));
}

class EditorPaneLoaderTest : public testing::Test {
protected:
    void SetUp() override {
        pane.resize(300, 100);
        pane.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&pane));
    }
    void finish() {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !loader.isChunkedLoadActive(); }));
    }
    QScrollBar& bar() { return *pane.verticalScrollBar(); }

    QPlainTextEdit pane;
    EditorPaneLoader loader{&pane};
    QSignalSpy changes{&pane, &QPlainTextEdit::textChanged};
    QSignalSpy chunked{&loader, &EditorPaneLoader::chunkedLoadFinished};
};

TEST_F(EditorPaneLoaderTest, LoadsOnlyTheLastTextOfATurn) {
    int loads = 0;
    QObject::connect(pane.document(), &QTextDocument::contentsChanged, [&] { ++loads; });
    loader.request(QStringLiteral("one"));
    loader.request(QStringLiteral("two"));
    EXPECT_TRUE(loader.isShowing(QStringLiteral("two")));
    EXPECT_EQ(pane.toPlainText(), QString());
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("two"));
    EXPECT_LE(loads, 2);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(EditorPaneLoaderTest, LoadsLongTextsInChunksWithoutUndoAndWithoutSignals) {
    for (int const length : {atOnce, atOnce + 1, 4 * atOnce}) {
        SCOPED_TRACE(length);
        loader.request(lines(length));
        loader.flush();
        EXPECT_EQ(loader.isChunkedLoadActive(), length > atOnce);
        EXPECT_EQ(pane.document()->isUndoRedoEnabled(), length <= atOnce);
        finish();
        EXPECT_EQ(pane.toPlainText(), lines(length));
        EXPECT_TRUE(pane.document()->isUndoRedoEnabled());
    }
    EXPECT_EQ(chunked.count(), 2);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(EditorPaneLoaderTest, KeepsALineBreakAtTheEndOfAChunkWhole) {
    QString const text = QString(16383, u'a') + QStringLiteral("\r\n") + QString(atOnce, u'b');
    loader.request(text);
    loader.flush();
    finish();
    EXPECT_EQ(pane.document()->blockCount(), 2);
}

TEST_F(EditorPaneLoaderTest, AnotherTextStopsALoadAtOnce) {
    loader.request(lines(4 * atOnce));
    loader.flush();
    ASSERT_TRUE(loader.isChunkedLoadActive());
    loader.request(QStringLiteral("short"));
    EXPECT_FALSE(loader.isChunkedLoadActive());
    EXPECT_TRUE(pane.document()->isUndoRedoEnabled());
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("short"));
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("short"));
    EXPECT_EQ(chunked.count(), 0);
}

TEST_F(EditorPaneLoaderTest, FollowsTheCursorsPlaceUnlessTheUserHasScrolled) {
    using Place = EditorPaneLoader::CursorPlace;
    loader.request(lines(4 * atOnce));
    loader.setCursorPlace(Place::End);
    loader.flush();
    EXPECT_EQ(bar().value(), bar().maximum());
    finish();
    EXPECT_TRUE(pane.textCursor().atEnd());
    EXPECT_EQ(bar().value(), bar().maximum());

    loader.request(lines(5 * atOnce));
    loader.setCursorPlace(Place::End);
    loader.flush();
    bar().setSliderDown(true);
    bar().setSliderPosition(7);
    bar().setSliderDown(false);
    finish();
    EXPECT_EQ(bar().value(), 7);

    loader.request(lines(4 * atOnce));
    loader.flush();
    finish();
    EXPECT_TRUE(pane.textCursor().atStart());
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(EditorPaneLoaderTest, AnAbandonedLoadDoesNotComeBack) {
    loader.request(QStringLiteral("late"));
    loader.abandon();
    pane.setPlainText(QStringLiteral("typed"));
    QCoreApplication::processEvents();
    EXPECT_EQ(pane.toPlainText(), QStringLiteral("typed"));
}

#include "TableFixture.h"
#include "model/undo/ApplyHiddenLinesCommand.h"
#include "tests/support/HeldClock.h"
#include "tests/support/MsgBoxAnswers.h"
#include "view/ColumnSample.h"
#include "view/FrozenTableView.h"
#include "view/SampledLines.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

TEST(SampledLines, AreTheFirstHundredAndThenAsManyAsThePrecision) {
    struct {
        int first, count, precision, lines, hundredth, last;
    } const cases[] = {{0, 99, 50, 99, -1, 98},      {0, 1000, 50, 145, 100, 980}, {1, 1000, 50, 144, 120, 980},
                       {0, 300, 500, 300, 100, 299}, {5, 5, 50, 0, -1, -1},        {7, 3, 50, 0, -1, -1}};
    for (auto const& expected : cases) {
        std::vector<int> lines;
        for (int const line : SampledLines(expected.first, expected.count, expected.precision))
            lines.push_back(line);
        EXPECT_EQ(lines.size(), std::size_t(expected.lines)) << expected.count;
        EXPECT_EQ(lines.empty() ? -1 : lines.back(), expected.last);
        EXPECT_EQ(lines.size() > 100 ? lines[100] : -1, expected.hundredth);
    }
}

TEST(ColumnSample, KeepsTheFiveLongestTextsUntilOneIsTooLong) {
    ColumnSample sample(10, 95);
    for (char const* text : {"", "ccc", "a", "dddd", "bb", "eeeee", "ffffff", "xx"})
        EXPECT_TRUE(sample.add(QString::fromLatin1(text)));
    EXPECT_EQ(sample.texts(), (std::vector<QString>{"ffffff", "eeeee", "dddd", "ccc", "bb"}));
    EXPECT_FALSE(sample.add(QString(10, u'w')));
    EXPECT_TRUE(ColumnSample(10, -1).add(QString(10000, u'w')));
}

class AutoFit : public TableFixture {
protected:
    void type(int row, int col, QString const& text) { model().setData(model().index(row, col), text); }
    static QString words(int count) { return QStringLiteral("word ").repeated(count).trimmed(); }
};

TEST_F(AutoFit, ColumnIsAsWideAsItsContentsWithinItsBounds) {
    view.setAutoFitColWidth(true, false);
    loadText("head,\"a header wider than eighty pixels\",,x\n1," + QByteArray() + ",,\n" +
             QByteArray("a text of middling length,,,") + QByteArray(10000, 'w') + "\n");
    int const fitted = view.columnWidth(0);
    EXPECT_GT(fitted, 100);
    EXPECT_LT(fitted, 300);
    EXPECT_GT(view.columnWidth(1), 150) << "the header row decides over an empty column";
    EXPECT_EQ(view.columnWidth(2), view.getDefaultColumnWidth()) << "an empty column";
    EXPECT_EQ(view.columnWidth(3), view.getMaximumColumnWidth());
    view.setMaximumColumnWidth(90, false);
    EXPECT_EQ(view.columnWidth(0), 90);
    EXPECT_EQ(view.columnWidth(2), 80);
}

TEST_F(AutoFit, ColumnNarrowerThanTheDefaultHugsItsTexts) {
    view.setAutoFitColWidth(true, false);
    loadText("a,b\n1,2\n");
    EXPECT_LT(view.columnWidth(0), view.getDefaultColumnWidth());
    bool allEmpty = true;
    int const width = view.estimateMaxWidthForColumnMainTable(0, 50, 80, 800, allEmpty);
    EXPECT_FALSE(allEmpty);
    EXPECT_EQ(view.estimateMaxWidthForColumnMainTable(0, 50, 80, width - 1, allEmpty), width - 1);
    view.estimateMaxWidthForColumnMainTable(5, 50, 80, 800, allEmpty);
    EXPECT_TRUE(allEmpty);
}

TEST_F(AutoFit, HighlightedHeaderColumnsAreAsWideAsTheirBoldTexts) {
    view.setAutoFitColWidth(true, false);
    loadText("a,a\nmmmm mmmm mmmm mmmm,mmmm mmmm mmmm mmmm\n");
    view.setNumberOfHeaderColumns(1, false);
    view.setHighlightHeaderColumns(true, false);
    EXPECT_GT(view.columnWidth(0), view.columnWidth(1));
    view.setHighlightHeaderColumns(false, false);
    EXPECT_EQ(view.columnWidth(0), view.columnWidth(1));
}

TEST_F(AutoFit, WidensWithAnEditAndWithTyping) {
    view.setAutoFitColWidth(true, false);
    load(3, 3);
    select(1, 1);
    int const before = view.columnWidth(1);
    key(Qt::Key_A);
    auto* const editor = view.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, words(12));
    int const typed = view.columnWidth(1);
    EXPECT_GT(typed, before * 3);
    view.stopEditing();
    int const committed = view.columnWidth(1);
    EXPECT_GT(committed, before * 3);
    view.undo();
    EXPECT_EQ(view.columnWidth(1), before);
    view.redo();
    EXPECT_EQ(view.columnWidth(1), committed);
    view.undo();
    for (bool const commit : {true, false}) { // nothing is left of an edit that comes back to the text before
        QString const text = model().index(1, 1).data().toString();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        key(Qt::Key_A);
        auto* const again = view.findChild<QLineEdit*>();
        ASSERT_NE(again, nullptr);
        QTest::keyClicks(again, words(12));
        EXPECT_GT(view.columnWidth(1), before * 3);
        if (commit) {
            again->selectAll();
            QTest::keyClicks(again, text);
        }
        view.stopEditing(commit);
        EXPECT_EQ(view.columnWidth(1), before) << commit;
        EXPECT_EQ(model().index(1, 1).data().toString(), text);
    }
}

TEST_F(AutoFit, EditorStaysInSightAsItsColumnGrowsPastTheEdge) {
    view.setAutoFitColWidth(true, false);
    load(3, 12);
    view.scrollToTopLeft();
    int const col = view.columnAt(view.viewport()->width() - 2);
    view.scrollToCol(col, true, true);
    select(1, col);
    key(Qt::Key_A);
    auto* const editor = view.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, words(8));
    EXPECT_EQ(view.findChild<QLineEdit*>(), editor);
    EXPECT_EQ(editor->text(), "a" + words(8));
    EXPECT_LE(editor->geometry().right(), view.viewport()->width());
}

TEST_F(AutoFit, RowIsAsHighAsItsWrappedTexts) {
    loadText("h\n\"one\ntwo\nthree\nfour\"\nshort\n\n");
    type(2, 0, words(200));
    EXPECT_EQ(view.rowHeight(1), view.rowHeight(0));
    int const oneLine = view.rowHeight(1);
    view.setAutoFitRowHeight(true, false);
    QFontMetrics const metrics(model().getFont());
    EXPECT_GE(view.rowHeight(1), 4 * metrics.height());
    EXPECT_LE(view.rowHeight(1), 5 * metrics.height() + 8);
    EXPECT_EQ(view.rowHeight(2), 400) << "no higher than the greatest height";
    EXPECT_EQ(view.rowHeight(3), oneLine) << "an empty row";
    int const withGrid = view.calculateAutoFitRowHeight(1);
    view.setShowGrid(false);
    EXPECT_EQ(view.calculateAutoFitRowHeight(1), withGrid - 1);
    EXPECT_EQ(view.calculateAutoFitRowHeight(3), 0);
    model().setNumberOfHeaderCols(1);
    EXPECT_EQ(view.calculateAutoFitRowHeight(1), 0) << "header columns do not count";
    model().setNumberOfHeaderCols(0);
    view.setMaximumRowHeight(50, false);
    EXPECT_EQ(view.rowHeight(2), 50);
}

TEST_F(AutoFit, HeightIsThatOfQtsLayoutForEveryKindOfText) {
    QStringList const texts{"plain",
                            words(9),
                            QString::fromUtf8("größer als ein Wort, mehr als eine Zeile"),
                            "a\nb",
                            "tab\there",
                            QString::fromUtf8("\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"),
                            QString(14, u'W'),
                            QString(14, u'i')};
    load(2, 1);
    view.setAutoFitRowHeight(true, false);
    QFontMetrics const metrics(model().getFont());
    for (int width = 60; width <= 240; width += 45) {
        view.setColumnWidth(0, width);
        for (QString const& text : texts) {
            type(1, 0, text);
            int const margin = (view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1) * 2;
            QRect const laidOut = metrics.boundingRect(0, 0, width - margin - 1, 99999, 4129, text);
            EXPECT_EQ(view.calculateAutoFitRowHeight(1), std::min(laidOut.height() + margin + 1, 400))
                << qPrintable(text) << width;
        }
    }
}

TEST_F(AutoFit, RowLooksAtEveryColumnUpToTheHundredthAndThenAtSome) {
    load(2, 400);
    QString const tall = "a\nb\nc\nd";
    int const flat = view.calculateAutoFitRowHeight(1, 50); // every eighth column from the hundredth on
    struct {
        int col;
        bool counts;
    } const cases[] = {{99, true}, {100, true}, {101, false}, {107, false}, {108, true}};
    for (auto const& [col, counts] : cases) {
        type(1, col, tall);
        EXPECT_EQ(view.calculateAutoFitRowHeight(1, 50) > flat, counts) << col;
        type(1, col, "x");
    }
}

TEST_F(AutoFit, CountsDownWhatItSkips) {
    load(2, 2);
    view.setAutoFitColWidth(true, false);
    int const fitted = view.columnWidth(0);
    view.setAutoFitColumnCountdown(1);
    for (int const expected : {fitted, 200}) {
        view.setColumnWidth(0, 200);
        view.enforceAutoFitColWidth(false);
        EXPECT_EQ(view.columnWidth(0), expected);
    }
    view.setAutoFitColumnCountdown(-1);
    view.enforceAutoFitColWidth(false);
    EXPECT_EQ(view.columnWidth(0), fitted);
}

TEST_F(AutoFit, TextSizeAndFontRefit) {
    load(3, 2);
    view.setAutoFitColWidth(true, false);
    view.setAutoFitRowHeight(true, false);
    int const width = view.columnWidth(0);
    view.setTextSize(36);
    EXPECT_GT(view.columnWidth(0), width);
    EXPECT_GT(view.rowHeight(0), 36);
    EXPECT_EQ(model().getFont().pixelSize(), 36);
    QFont other = model().getFont();
    other.setPixelSize(9);
    view.setFont(other);
    EXPECT_EQ(model().getFont().pixelSize(), 36) << "the text size stays";
}

TEST_F(AutoFit, LabelsAreShownInFull) {
    auto const expectLabels = [this](char const* after) {
        QFontMetrics const metrics(model().headerData(0, Qt::Horizontal, Qt::FontRole).value<QFont>());
        for (int col = 0; col < model().columnCountModel(); ++col) {
            QString const label = model().headerData(col, Qt::Horizontal).toString();
            EXPECT_GT(view.columnWidth(col), metrics.horizontalAdvance(label)) << after << ' ' << col;
        }
    };
    view.setAutoFitColWidth(true, false);
    loadText(QByteArray("x,").repeated(199) + "x\n" + QByteArray("i,").repeated(199) + "1\n" +
             QByteArray("i,").repeated(199) + "0\n");
    expectLabels("loading");
    std::vector<int> widths;
    for (int col = 0; col < 200; ++col)
        widths.push_back(view.columnWidth(col));
    view.sortRowsOrCols({SortType::Descending, Axis::Rows, 114});
    view.sortRowsOrCols({SortType::Ascending, Axis::Rows, 199});
    expectLabels("sorting");
    for (int col = 0; col < 200; ++col)
        EXPECT_EQ(view.columnWidth(col), widths[std::size_t(col)]) << "a mark moves nothing";
    view.setColumnWidth(7, 30);
    view.setFirstColIndex(1000000, false, false);
    EXPECT_EQ(view.columnWidth(7), 30) << "the user's";
    view.setColumnWidth(7, 300);
    expectLabels("longer numbers");
    view.setRepresentColumnsAsLetters(true);
    expectLabels("letters");
}

TEST_F(AutoFit, ARowOfDefaultHeightHoldsALineOfText) {
    load(40, 3);
    int const asSet = view.rowHeight(5);
    view.setRowHeight(7, asSet + 3);
    view.setFreezeHeaderColumns(true, false);
    for (int const size : {30, 50}) {
        view.setTextSize(size);
        EXPECT_GE(view.rowHeight(5), QFontMetrics(model().getFont()).height());
        EXPECT_EQ(view.rowHeight(5), view.getVerticalFrozenView()->rowHeight(5));
        EXPECT_EQ(view.rowHeight(7), asSet + 3) << "the user's";
    }
    view.undoStack()->clear();
    view.setTextSize(6);
    EXPECT_EQ(view.rowHeight(5), view.getDefaultRowHeight());
    view.setDefaultRowHeight(2);
    EXPECT_GE(view.rowHeight(5), QFontMetrics(model().getFont()).height());
}

TEST_F(AutoFit, HiddenColumnsLeaveTheOthersTheirWidths) {
    view.setAutoFitColWidth(true, false);
    loadText("h,h,h,h\n" + words(2).toUtf8() + ",x," + words(9).toUtf8() + "," + words(5).toUtf8() + "\n");
    std::vector<int> widths;
    for (int col = 0; col < 4; ++col)
        widths.push_back(view.columnWidth(col));
    view.setRowHeight(1, 77);
    view.pushUndoCommand(new ApplyHiddenColsCommand(&model(), model().getSelection(), std::vector<int>{0, 2}, true));
    EXPECT_EQ(view.columnWidth(0), widths[1]);
    EXPECT_EQ(view.columnWidth(1), widths[3]);
    view.pushUndoCommand(new ApplyHiddenRowsCommand(&model(), model().getSelection(), std::vector<int>{0}, true));
    EXPECT_EQ(view.rowHeight(0), 77);
    view.undo();
    view.undo();
    EXPECT_EQ(view.rowHeight(1), 77);
    for (int col = 0; col < 4; ++col)
        EXPECT_EQ(view.columnWidth(col), widths[std::size_t(col)]);
    view.pushUndoCommand(new ApplyHiddenColsCommand(&model(), model().getSelection(), std::vector<int>{1}, true));
    view.setColumnWidth(2, 30);
    view.setFirstColIndex(1000000000, false, false);
    EXPECT_EQ(view.columnWidth(2), 30) << "the user's, though the labels are longer";
}

TEST_F(AutoFit, HeaderCellsAreMeasuredBoldWhileTheyAreTyped) {
    view.setAutoFitColWidth(true, false);
    load(3, 3);
    view.setHighlightHeaderRows(true, false);
    select(0, 1);
    key(Qt::Key_M);
    auto* const editor = view.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QString const text = QStringLiteral("mmmm ").repeated(8);
    QTest::keyClicks(editor, text);
    QFont bold = model().getFont();
    bold.setBold(true);
    EXPECT_GT(view.columnWidth(1), QFontMetrics(bold).horizontalAdvance("M" + text));
}

class AutoFitWarning : public AutoFit, public testing::WithParamInterface<std::array<int, 5>> {
protected:
    ~AutoFitWarning() override { TableView::setSuppressAutoFitWarnings(false); }
};

// Rows, columns, whether each is fitted, and the lines of the text.
TEST_P(AutoFitWarning, AsksAboutWhatTakesAWhile) {
    auto const [rows, cols, fitRows, fitCols, text] = GetParam();
    static char const* const texts[] = {
        "",
        "This file has a lot of rows (10001).\nAuto-Fit Row Height is enabled, so loading will take a while.\n"
        "Would you like to disable Auto-Fit Row Height?",
        "This file has a lot of columns (10001).\nAuto-Fit Column Width is enabled, so loading will take a while.\n"
        "Would you like to disable Auto-Fit Column Width?",
        "This file has a lot of rows (10001) and columns (10001).\n"
        "Auto-Fit Row Height and Auto-Fit Column Width are enabled, so loading will take a while.\n"
        "Would you like to disable them?"};
    load(1, 1);
    MsgBoxAnswers answers;
    if (fitRows != 0)
        view.setAutoFitRowHeight(true, false);
    if (fitCols != 0)
        view.setAutoFitColWidth(true, false);
    view.setAutoFitColumnCountdown(0);
    model().insertRows(1, rows - 1);
    model().insertColumns(1, cols - 1);
    if (text != 0)
        answers.next("Disable Auto-Fit");
    QSignalSpy const kept(&view, &TableView::fileMetadataChangedSignal);
    view.warnAutoFitIfLargeFile();
    EXPECT_EQ(answers.texts().value(0), texts[text]);
    EXPECT_EQ(answers.defaults().value(0), text != 0 ? "Disable Auto-Fit" : "");
    EXPECT_EQ(view.isAutoFitRowHeight(), fitRows != 0 && (text & 1) == 0);
    EXPECT_EQ(view.isAutoFitColWidth(), fitCols != 0 && (text & 2) == 0);
    EXPECT_EQ(kept.isEmpty(), text == 0);
}

using Case = std::array<int, 5>;
INSTANTIATE_TEST_SUITE_P(Sizes, AutoFitWarning,
                         testing::Values(Case{10000, 1, 1, 1, 0}, Case{10001, 1, 1, 1, 1}, Case{10001, 1, 0, 1, 0},
                                         Case{1, 10000, 1, 1, 0}, Case{1, 10001, 1, 1, 2}, Case{1, 10001, 1, 0, 0},
                                         Case{10001, 10001, 1, 1, 3}, Case{10001, 10001, 0, 1, 2}));

TEST_F(AutoFitWarning, AtTheEndOfALoadWaitsForTheKeys) {
    HeldClock clock;
    MsgBoxAnswers answers;
    load(1, 1);
    view.setAutoFitRowHeight(true, false);
    model().insertRows(1, 10001);
    TypingGuard::noteKey(); // in another table
    view.onLoadFinished();
    EXPECT_EQ(answers.texts().size(), 0);
    answers.next("Disable Auto-Fit", [] { EXPECT_TRUE(FromOutside::isActing()); });
    clock.pass(TypingGuard::stillMs);
    EXPECT_FALSE(view.isAutoFitRowHeight());
}

TEST_F(AutoFitWarning, IsNotShownAgainOnceUnwanted) {
    load(1, 1);
    view.setAutoFitRowHeight(true, false);
    model().insertRows(1, 10001);
    QSignalSpy const unwanted(&view, &TableView::suppressAutoFitWarningsChangedSignal);
    int shown = 0;
    MsgBox::setAnswer([&](MsgBox const& box) {
        ++shown;
        EXPECT_EQ(box.checkBox()->text(), "Don't ask me again");
        box.checkBox()->setChecked(shown == 2);
        return box.buttons()[1];
    });
    for (int time = 0; time < 4; ++time)
        view.warnAutoFitIfLargeFile();
    MsgBox::setAnswer({});
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(unwanted.count(), 1);
    EXPECT_TRUE(view.isAutoFitRowHeight());
}

} // namespace

#pragma once

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/StatusBar.h"
#include "core/PathUtilities.h"
#include "model/undo/SetModelDataCommand.h"
#include "tests/model/SelectionText.h"
#include "tests/support/MsgBoxAnswers.h"
#include "tests/support/PromptAnswers.h"
#include "tests/support/TestFolder.h"
#include "view/TableView.h"
#include "view/TypingGuard.h"

#include <QDir>
#include <QTest>
#include <gtest/gtest.h>

/// The preferences of a new user, gone with the test.
class OwnPreferences {
public:
    OwnPreferences() : before(qgetenv("XDG_DATA_HOME")) {
        qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
        QDir().mkpath(Utilities::getAppDataLocation());
    }
    ~OwnPreferences() { qputenv("XDG_DATA_HOME", before); }

private:
    QTemporaryDir home;
    QByteArray before;
};

/// Puts a text into a cell by a command that can be undone.
inline void change(TableView& table, QString const& text, int row = 0, int col = 0) {
    RangeVector cells{modelCell(row, col)};
    cells[0].setValue(text);
    cells[0].hasMainCell = true;
    table.pushUndoCommand(new SetModelDataCommand(table.tableModel(), cells, true));
}

/// A window with preferences and a folder of its own. A question that no answer was given for fails the test.
class WindowFixture : public testing::Test {
protected:
    WindowFixture() { TypingGuard::setClock({}); } // the keys of the test before are no user's of this one

    QString write(QString const& name, QByteArray const& bytes) const { return directory.write(name, bytes); }
    QByteArray read(QString const& name) const { return directory.read(name); }
    /// Writes a file and opens it. Returns the path.
    QString open(QByteArray const& content, QString const& name = QStringLiteral("a.csv")) {
        QString const path = write(name, content);
        EXPECT_TRUE(window.openFile(path));
        return path;
    }

    TableView* table() const { return window.getActiveTable(); }
    TableModel& model() const { return *table()->tableModel(); }
    QString cell(int row, int col) const { return model().index(row, col).data(Qt::EditRole).toString(); }
    /// All data, cells by blanks and rows by bars, "-" for an empty cell, hidden lines in brackets.
    std::string stored() const { return textOfData(true); }
    /// The same of the data in sight.
    std::string shown() const { return textOfData(false); }
    /// In the order of inOrder: the model's is that in which it has last looked for something.
    std::string selection() const { return inOrder(textOf(model().getSelection())); }
    static std::string inOrder(std::string const& ranges) {
        QStringList words = QString::fromStdString(ranges).split(QLatin1Char(' '));
        words.sort();
        return words.join(QLatin1Char(' ')).toStdString();
    }
    /// The main cell is the start of the first range.
    void select(char const* text) const {
        RangeVector const ranges = rangesFrom(text);
        model().setSelection(modelCell(ranges.front().row, ranges.front().col), ranges);
    }
    void change(QString const& text, int row = 0, int col = 0) const { ::change(*table(), text, row, col); }
    QString label(StatusBar::Label which) const { return window.getStatusBar()->text(which); }
    /// Puts the settings of a file in force, each a line "name,value".
    void set(QByteArray const& settings) {
        window.onPreferenceChanged(write(Utilities::getSettingsFilepath(), "Setting,User Value\n" + settings + '\n'));
    }
    /// Switches a setting of the window by its command.
    void toggle(QString const& setting) { window.runCommand("Toggle " + setting); }
    /// Runs a command and answers its questions.
    void run(QString const& command, QStringList const& answers = {}) {
        window.runCommand(command);
        for (QString const& answer : answers) {
            ASSERT_TRUE(window.getPrompts()->isOpen()) << qPrintable(command);
            prompts.answer(window.getPrompts()->currentTitle(), answer);
        }
    }

private:
    std::string textOfData(bool withHidden) const {
        TableData const& data = model().getTableData();
        auto const mark = [](bool hidden) { return QString::fromLatin1(hidden ? "(%1)" : "%1"); };
        QStringList rows;
        for (int row = 0; row < data.numRawRows(); ++row) {
            QStringList cells;
            for (int col = 0; col < data.numRawCols(); ++col) {
                QString const text = data.getValueRaw(row, col).toString();
                if (withHidden || !data.isColConcealed(col))
                    cells << mark(data.isColConcealed(col)).arg(text.isEmpty() ? QStringLiteral("-") : text);
            }
            if (withHidden || !data.isRowConcealed(row))
                rows << mark(data.isRowConcealed(row)).arg(cells.join(QLatin1Char(' ')));
        }
        return rows.join(QLatin1Char('|')).toStdString();
    }

protected:
    TestFolder directory;
    OwnPreferences preferences;
    MainWindow window;
    PromptAnswers prompts{window};
    MsgBoxAnswers box;
};

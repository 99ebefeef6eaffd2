#include "app/Application.h"
#include "app/TabBar.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/HeldClock.h"
#include "tests/support/Notices.h"
#include "tests/support/Typing.h"
#include "view/FileDialog.h"

#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileOpenEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QTimer>

namespace {

/// Second starts, which may come while anything else goes on.
class SecondStartTest : public testing::Test {
protected:
    SecondStartTest() {
        TypingGuard::setClock({}); // the keys of the test before are no user's of this one
        for (MainWindow* const open : app.getMainWindows())
            open->close();
        app.createNewInstance(true, {});
        window = app.getActiveMainWindow();
    }
    ~SecondStartTest() override { FileDialog::setAnswer({}); }

    QString write(QString const& name, QByteArray const& bytes = "1,2\n") const { return directory.write(name, bytes); }
    QByteArray read(QString const& name) const { return directory.read(name); }
    void openAndChange(QString const& name) {
        window->openFile(write(name));
        change(*window->getActiveTable(), "changed");
    }
    void secondStart(QString const& file) {
        app.onMessageReceived(2, directory.path().toUtf8() + "<gridwright<" + file.toUtf8());
    }
    /// The names of the open tables of all windows, windows apart by "|".
    QString open() const {
        QStringList windows;
        for (MainWindow const* const each : app.getMainWindows()) {
            QStringList names;
            for (TableView const* const table : each->getPaneView()->getTables())
                names << table->tableModel()->getTableName();
            names.sort();
            windows << names.join(' ');
        }
        return windows.join(" | ");
    }
    /// What is shown when all that was put off has happened.
    testing::AssertionResult comesTo(QString const& expected) const {
        bool const came = QTest::qWaitFor([&] { return open() == expected; });
        QCoreApplication::processEvents();
        return came && open() == expected ? testing::AssertionSuccess()
                                          : testing::AssertionFailure() << qPrintable(open());
    }

    OwnPreferences preferences;
    Application& app = *static_cast<Application*>(qApp);
    QPointer<MainWindow> window;
    TestFolder directory;
    MsgBoxAnswers box;
};

} // namespace

TEST_F(SecondStartTest, DuringTheQuestionsOfAClosingWindowEveryEditIsStillAskedAbout) {
    for (char const* const name : {"a.csv", "b.csv", "c.csv"})
        openAndChange(name);
    write("d.csv");
    box.next("Don't Save", [this] { secondStart("d.csv"); });
    box.next("Save", [this] {
        QCoreApplication::processEvents();
        EXPECT_EQ(open(), "a.csv b.csv");
    });
    box.next("Cancel", [this] { secondStart("d.csv"); });
    EXPECT_FALSE(window->close());
    EXPECT_EQ(open(), "a.csv");
    EXPECT_EQ(read("b.csv"), "changed,2\n");
    EXPECT_TRUE(comesTo("a.csv d.csv"));
    box.next("Don't Save");
    EXPECT_TRUE(window->close());
}

TEST_F(SecondStartTest, WhoseWindowClosesMeanwhileGetsAnotherOneAndTheProgramGoesOn) {
    openAndChange("a.csv");
    write("d.csv");
    box.next("Don't Save", [this] { secondStart("d.csv"); });
    QString seen;
    QTimer::singleShot(0, &app, [this] { window->close(); });
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &app, [&] {
        if (open() == "d.csv") {
            seen = open();
            app.getActiveMainWindow()->close();
        }
    });
    poll.start(0);
    QTimer::singleShot(20000, &app, &QCoreApplication::quit);
    QApplication::exec(); // ends with the second window
    EXPECT_EQ(seen, "d.csv");
    EXPECT_TRUE(app.getMainWindows().empty());
}

TEST_F(SecondStartTest, WaitsForAnOpenMenuAndEndsAPromptAboutAnotherTable) {
    for (char const* const name : {"a.csv", "b.csv", "c.csv"})
        write(name);
    window->openFile(directory.filePath("a.csv"));
    window->show();
    emit window->getActiveTable()->customContextMenuRequested(QPoint(1, 1));
    auto const menus = window->getActiveTable()->findChildren<QMenu*>();
    ASSERT_EQ(menus.size(), 1);
    for (QMenu* const menu : {menus.first(), window->menuBar()->actions().first()->menu()}) {
        menu->popup({});
        secondStart("b.csv");
        QCoreApplication::processEvents();
        EXPECT_EQ(open(), "a.csv");
        menu->close();
        EXPECT_TRUE(comesTo("a.csv b.csv"));
        window->commandCloseFile();
    }
    window->runCommand("Go to Cell");
    ASSERT_NE(window->getPrompts()->currentTitle(), "");
    secondStart("c.csv");
    EXPECT_TRUE(comesTo("a.csv c.csv"));
    EXPECT_EQ(window->getPrompts()->currentTitle(), "");
}

TEST_F(SecondStartTest, WaitsForTheTextThatIsTypedButNotForEver) {
    HeldClock clock;
    write("b.csv");
    write("c.csv");
    window->openFile(write("a.csv"));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    typeText("one");
    secondStart("b.csv");
    clock.pass(TypingGuard::idleMs - 1);
    typeText(" two");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    secondStart("c.csv");
    clock.pass(TypingGuard::stillMs - 100);
    EXPECT_EQ(open(), "a.csv");
    TableView const* const first = window->getActiveTable();
    typeText("left");
    clock.pass(TypingGuard::idleMs - 1);
    EXPECT_EQ(open(), "a.csv");
    clock.pass(TypingGuard::stillMs);
    EXPECT_EQ(open(), "a.csv b.csv c.csv");
    EXPECT_EQ(first->tableModel()->getTableData().getValueRaw(0, 0).toString(), "one two");
    EXPECT_EQ(first->tableModel()->getTableData().getValueRaw(1, 0).toString(), "left");
    typeText(" over"); // the text goes on
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(window->getActiveTable()->undoStack()->isClean());
    EXPECT_EQ(Notices::texts(*window), QStringList("This table was opened while you were typing in another one: " +
                                                   directory.filePath("c.csv")));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(window->getActiveTable()->hasFocusInside());
    box.next("Don't Save");
    window->commandCloseAllFiles();
}

TEST_F(SecondStartTest, BehindAnOpenFileDialogOpensAfterItAndOnce) {
    QString const both = write("a.csv");
    openAndChange("b.csv");
    FileDialog::setAnswer([&](QString const&) {
        secondStart("a.csv");
        QCoreApplication::processEvents();
        EXPECT_EQ(open(), "b.csv");
        return QStringList(both);
    });
    window->commandOpenFile();
    secondStart("a.csv");
    EXPECT_TRUE(comesTo("a.csv b.csv"));
    EXPECT_EQ(window->getActiveTable()->getFilepath(), both);
    box.next("Don't Save");
    window->commandCloseAllFiles();
    EXPECT_EQ(open(), "untitled");
}

TEST_F(SecondStartTest, BehindARealDialogNeitherOpensNorClosesUnderIt) {
    write("a.csv");
    for (bool const save : {false, true}) {
        QPointer<TableView> const untitled = window->getActiveTable();
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, &app, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            poll.stop();
            secondStart("a.csv");
            QTimer::singleShot(0, dialog, [this, dialog, untitled] {
                EXPECT_EQ(open(), "untitled");
                EXPECT_FALSE(untitled.isNull());
                dialog->reject();
            });
        });
        poll.start(0);
        save ? window->commandSaveFileAs() : window->commandOpenFile();
        EXPECT_TRUE(comesTo("a.csv"));
        window->commandCloseAllFiles();
    }
}

TEST_F(SecondStartTest, OfTheFileThatAQuestionIsAboutGivesItOneTab) {
    QFile settings(Utilities::getSettingsFilepath());
    ASSERT_TRUE(settings.open(QIODevice::ReadWrite));
    QByteArray const before = settings.readAll();
    ASSERT_TRUE(settings.resize(0) && settings.seek(0));
    settings.write("Setting,User Value\nMinimum File Size for Read-Only Mode Query (MB),0\n");
    settings.flush();
    window->onPreferenceChanged(settings.fileName());
    QString const path = write("a.csv");
    box.next("Open in Edit Mode", [this] { secondStart("a.csv"); });
    EXPECT_TRUE(window->openFile(path));
    EXPECT_TRUE(comesTo("a.csv"));
    ASSERT_TRUE(settings.resize(0) && settings.seek(0));
    settings.write(before);
}

TEST_F(SecondStartTest, FilesThatTheDesktopHandsOverWaitToo) {
    openAndChange("a.csv");
    QString const other = write("b.csv");
    QString const dropped = write("c.csv");
    box.next("Cancel", [&] {
        QFileOpenEvent event(other);
        QCoreApplication::sendEvent(&app, &event);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(dropped)});
        QDragEnterEvent enter({}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QDropEvent drop({}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &enter);
        QCoreApplication::sendEvent(window, &drop);
        EXPECT_EQ(open(), "a.csv");
    });
    window->commandCloseFile();
    EXPECT_TRUE(comesTo("a.csv b.csv c.csv"));
    box.next("Don't Save");
    window->commandCloseAllFiles();
}

TEST_F(SecondStartTest, OfAFileThatAnotherWindowHasShowsItThere) {
    openAndChange("a.csv");
    TableView const* const edited = window->getActiveTable();
    window->openFile(write("b.csv"));
    app.createNewInstance(true, {});
    MainWindow* const other = app.getActiveMainWindow();
    ASSERT_NE(other, window);
    write("c.csv");
    secondStart("a.csv<c.csv");
    EXPECT_EQ(open(), "a.csv b.csv | c.csv");
    EXPECT_EQ(window->getActiveTable(), edited);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }));
    box.next("OK");
    EXPECT_FALSE(other->saveFileUnder(other->getActiveTable(), directory.filePath("a.csv"), false));
    EXPECT_TRUE(box.texts().last().startsWith("This file is open in another window:\n"));
    EXPECT_EQ(read("a.csv"), "1,2\n");
    EXPECT_TRUE(other->openFile(directory.filePath("b.csv")));
    EXPECT_EQ(open(), "a.csv b.csv | c.csv");
    EXPECT_TRUE(other->close());
    box.next("Don't Save");
    window->commandCloseAllFiles();
}

TEST_F(SecondStartTest, NoWindowClosesUnderTheQuestionOfAnother) {
    openAndChange("a.csv");
    app.createNewInstance(true, {});
    MainWindow* const other = app.getActiveMainWindow();
    box.next("Cancel", [&] {
        app.closeProgram(); // neither the window that asks, which closes already, nor the other one
        QCoreApplication::processEvents();
        EXPECT_EQ(open(), "a.csv | untitled");
        EXPECT_TRUE(other->isVisible());
    });
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(comesTo("a.csv"));
    box.next("Don't Save");
    window->commandCloseAllFiles();
}

TEST_F(SecondStartTest, OfAPathThatDoesNotExistIsToldWithoutAQuestion) {
    write("a.csv");
    window->showMinimized();
    secondStart("b.csv<a.csv<no folder/c.csv");
    EXPECT_EQ(open(), "a.csv");
    EXPECT_FALSE(window->isMinimized());
    EXPECT_EQ(Notices::texts(*window), QStringList("These files do not exist: " + directory.filePath("b.csv") + ", " +
                                                   directory.filePath("no folder/c.csv")));
    Notices::press(*window, "Dismiss");
    EXPECT_EQ(Notices::texts(*window), QStringList());
}

TEST_F(SecondStartTest, GoesToTheWindowUsedLastAndWhereThatIsGoneToAnother) {
    for (int i = 0; i < 2; ++i)
        app.createNewInstance(true, {});
    EXPECT_TRUE(app.getMainWindows()[1]->close());
    write("a.csv");
    secondStart("a.csv");
    EXPECT_TRUE(comesTo("untitled | a.csv"));
    EXPECT_TRUE(app.getMainWindows()[1]->close());
    secondStart("a.csv");
    EXPECT_TRUE(comesTo("a.csv"));
}

TEST_F(SecondStartTest, ANewWindowFromAnyWindowIsAsLargeAsThatOneAndTheOneForWhatComesNext) {
    for (int number = 2; number <= 4; ++number) {
        MainWindow* const asking = app.getActiveMainWindow();
        asking->resize(600 + number * 20, 400 + number * 10);
        asking->runCommand("New Window");
        ASSERT_EQ(app.getMainWindows().size(), std::size_t(number));
        MainWindow* const made = app.getMainWindows().back();
        EXPECT_EQ(app.getActiveMainWindow(), made);
        EXPECT_EQ(made->size(), asking->size());
        EXPECT_TRUE(made->isVisible());
    }
    write("a.csv");
    secondStart("a.csv");
    EXPECT_TRUE(comesTo("untitled | untitled | untitled | a.csv"));
    app.closeProgram();
}

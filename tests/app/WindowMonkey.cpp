#include "tests/app/WindowMonkey.h"

#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PromptChain.h"
#include "storage/TableData.h"
#include "view/TableView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <array>
#include <iterator>

namespace {

constexpr int trailLength = 40;
constexpr int mostCells = 200000; ///< copies of copies grow without end; larger tables are given up

/// Commands that reach out of the window.
bool leavesTheWindow(QString const& name) {
    static QStringList const names{QStringLiteral("Open Preference File Folder"), QStringLiteral("New Window")};
    return names.contains(name);
}

constexpr std::array keys{Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,     Qt::Key_PageUp,
                          Qt::Key_Home,   Qt::Key_End,    Qt::Key_Return, Qt::Key_PageDown,  Qt::Key_Enter,
                          Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F2,
                          Qt::Key_Space,  Qt::Key_Insert, Qt::Key_A,      Qt::Key_R,         Qt::Key_C,
                          Qt::Key_Z,      Qt::Key_Y,      Qt::Key_L,      Qt::Key_G,         Qt::Key_Plus};

/// Whether any text of the table comes back from a file that is written in its dialect.
bool carriesEverything(TableData const& data) {
    return data.getParsingStandard() == ParsingStandard::Rfc4180 && data.getEncoding() == EncodingType::Utf8 &&
           data.getSaveDelimiter() == QLatin1String(",");
}

QString textAt(TableData const& data, int row, int col) {
    bool const inside = row < data.numRawRows() && col < data.numRawCols();
    return inside ? data.getValueRaw(row, col).toString() : QString();
}

} // namespace

WindowMonkey::WindowMonkey(unsigned seed) : random(seed) {
    MsgBox::setAnswer([this](MsgBox const& box) { return pressButton(box); });
    tend();
    for (int i = 0; i < 3; ++i)
        writeFile();
    openWindow();
}

WindowMonkey::~WindowMonkey() {
    window.reset();
    MsgBox::setAnswer({});
}

int WindowMonkey::number(int bound) {
    return int(random() % unsigned(bound)); // alike with every standard library
}

void WindowMonkey::note(QString const& action) {
    actions << action;
    if (actions.size() > trailLength)
        actions.removeFirst();
    if (qEnvironmentVariableIsSet("GRIDWRIGHT_MONKEY_TALKS"))
        fprintf(stderr, "%s\n", qPrintable(action));
}

void WindowMonkey::openWindow() {
    window = std::make_unique<MainWindow>();
    constexpr int width = 700;
    constexpr int height = 500;
    window->resize(width, height);
    window->show();
    window->activateWindow();
    QCoreApplication::processEvents();
}

void WindowMonkey::act() {
    static constexpr std::array<std::pair<int, Action>, 11> shares{{{30, &WindowMonkey::runAnyCommand},
                                                                    {22, &WindowMonkey::pressKeys},
                                                                    {8, &WindowMonkey::typeText},
                                                                    {10, &WindowMonkey::useMouse},
                                                                    {8, &WindowMonkey::selectSomething},
                                                                    {3, &WindowMonkey::writeFile},
                                                                    {4, &WindowMonkey::openFile},
                                                                    {1, &WindowMonkey::removeFile},
                                                                    {4, &WindowMonkey::save},
                                                                    {3, &WindowMonkey::wait},
                                                                    {7, &WindowMonkey::answerPrompt}}};
    TableData const& data = window->getActiveTable()->tableModel()->getTableData();
    bool const large = qint64(data.numRawRows()) * data.numRawCols() > mostCells;
    if (large || !window->isVisible()) {
        note(QStringLiteral("new window"));
        openWindow();
    }
    Action action = &WindowMonkey::answerPrompt;
    bool const asked = window->getPaneView()->getLauncher() != nullptr;
    if (!asked || chance(40)) {
        int share = number(100);
        for (auto const& [width, candidate] : shares) {
            share -= width;
            action = candidate;
            if (share < 0)
                break;
        }
    }
    clock.start();
    (this->*action)();
    QCoreApplication::processEvents();
    if (clock.elapsed() > slowest) {
        slowest = clock.elapsed();
        slowestAction = actions.value(actions.size() - 1);
    }
}

// What it does.

void WindowMonkey::runAnyCommand() {
    std::vector<Command> const& commands = window->getCommands().sorted();
    QString const name = commands[std::size_t(number(int(commands.size())))].name;
    if (leavesTheWindow(name))
        return;
    note(QStringLiteral("command ") + name);
    window->runCommand(name);
}

void WindowMonkey::pressKeys() {
    static constexpr std::array<Qt::KeyboardModifiers::Int, 9> modifiers{Qt::NoModifier,
                                                                         Qt::NoModifier,
                                                                         Qt::NoModifier,
                                                                         Qt::ShiftModifier,
                                                                         Qt::ControlModifier,
                                                                         Qt::AltModifier,
                                                                         Qt::ControlModifier | Qt::ShiftModifier,
                                                                         Qt::AltModifier | Qt::ShiftModifier,
                                                                         Qt::KeypadModifier};
    for (int left = 1 + number(5); left > 0; --left) {
        Qt::Key const key = keys[std::size_t(number(int(keys.size())))];
        Qt::KeyboardModifiers const with(modifiers[std::size_t(number(int(modifiers.size())))]);
        note(QStringLiteral("key ") + QKeySequence(int(key) | with.toInt()).toString());
        if (QWidget* const target = focus())
            QTest::keyClick(target, key, with);
    }
}

void WindowMonkey::typeText() {
    QString const text = word();
    note(QStringLiteral("type ") + text);
    for (QChar const letter : text) {
        if (QWidget* const target = focus()) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, chance(2) ? QString() : QString(letter));
            QCoreApplication::sendEvent(target, &press);
        }
    }
}

void WindowMonkey::useMouse() {
    TableView* const table = window->getActiveTable();
    std::array<QWidget*, 3> const places{table->viewport(), table->horizontalHeader()->viewport(),
                                         table->verticalHeader()->viewport()};
    QPointer<QWidget> const place = places[std::size_t(number(int(places.size())))];
    QPoint const from(number(std::max(place->width(), 1)), number(std::max(place->height(), 1)));
    QPoint const to(number(std::max(place->width(), 1)), number(std::max(place->height(), 1)));
    Qt::KeyboardModifiers const with(chance(70)   ? Qt::NoModifier
                                     : chance(50) ? Qt::ShiftModifier
                                                  : (chance(50) ? Qt::ControlModifier : Qt::AltModifier));
    Qt::MouseButton const button = chance(90) ? Qt::LeftButton : Qt::RightButton;
    note(QStringLiteral("press %1,%2 %3").arg(from.x()).arg(from.y()).arg(int(with)));
    if (chance(25)) {
        QTest::mouseDClick(place, button, with, from);
        return;
    }
    QTest::mousePress(place, button, with, from);
    if (place != nullptr && chance(60))
        QTest::mouseMove(place, to);
    if (place != nullptr && chance(20) && table == window->getActiveTable())
        QTest::keyClick(table, keys[std::size_t(number(int(keys.size())))]);
    if (place != nullptr)
        QTest::mouseRelease(place, button, with, to);
}

void WindowMonkey::selectSomething() {
    TableModel& model = *window->getActiveTable()->tableModel();
    int const kind = number(4);
    Range range(number(12), number(6), RangeIndexType::Model);
    if (kind != 0)
        range = Range(number(8), kind == 1 ? RangeType::Row : RangeType::Column, RangeIndexType::Model);
    if (kind == 3)
        range = Range(RangeType::Table, RangeIndexType::Model);
    range.hasMainCell = true;
    note(QStringLiteral("select kind %1 at %2,%3").arg(kind).arg(range.row).arg(range.col));
    if (kind == 0)
        model.setSelection(range);
    else
        window->runCommand(kind == 1   ? QStringLiteral("Select Entire Row(s)")
                           : kind == 2 ? QStringLiteral("Select Entire Column(s)")
                                       : QStringLiteral("Select Entire Table"));
}

void WindowMonkey::answerPrompt() {
    QPointer<Launcher> const launcher = window->getPaneView()->getLauncher();
    if (launcher == nullptr) {
        runAnyCommand();
        return;
    }
    QString const text = chance(60) ? word() : launcher->getEditor()->text();
    note(QStringLiteral("answer '%1' with '%2'").arg(window->getPrompts()->currentTitle(), text));
    launcher->setEditorText(text);
    for (int down = number(4); down > 0 && launcher != nullptr; --down)
        QTest::keyClick(launcher->getEditor(), Qt::Key_Down);
    for (int presses = chance(10) ? 2 : 1; presses > 0 && launcher != nullptr; --presses)
        QTest::keyClick(launcher->getEditor(), chance(75) ? Qt::Key_Return : Qt::Key_Escape);
}

void WindowMonkey::writeFile() {
    QFile file(directory.filePath(fileName()));
    note(QStringLiteral("outside write to ") + QFileInfo(file).fileName());
    if (file.open(QIODevice::WriteOnly))
        file.write(fileContent());
}

void WindowMonkey::openFile() {
    QString const name = fileName();
    note(QStringLiteral("open ") + name);
    window->openFiles({directory.filePath(name)});
}

void WindowMonkey::removeFile() {
    QString const name = fileName();
    note(QStringLiteral("outside removal of ") + name);
    QFile::remove(directory.filePath(name));
}

void WindowMonkey::save() {
    QPointer<TableView> const table = window->getActiveTable();
    if (table->getFilepath().isEmpty() || !table->getFilepath().startsWith(directory.path()))
        return;
    note(QStringLiteral("save ") + QFileInfo(table->getFilepath()).fileName());
    bool const saved = window->saveFile(table);
    if (saved && table != nullptr && !table->isLoading())
        compareWithFile(*table);
}

void WindowMonkey::wait() {
    note(QStringLiteral("wait"));
    constexpr int moment = 30;
    QTest::qWait(moment);
}

// What comes of it.

void WindowMonkey::compareWithFile(TableView const& table) {
    TableData const& shown = table.tableModel()->getTableData();
    if (!carriesEverything(shown) || table.isReadOnly())
        return;
    TableData stored;
    stored.loadCSV(table.getFilepath(), false, TableData::DataContainerType::Editable, QStringLiteral(","),
                   QStringLiteral(","), EncodingType::Utf8, ParsingStandard::Rfc4180);
    ++compared;
    for (int row = 0; row < std::max(shown.numRawRows(), stored.numRawRows()); ++row) {
        for (int col = 0; col < std::max(shown.numRawCols(), stored.numRawCols()); ++col)
            ASSERT_EQ(textAt(shown, row, col), textAt(stored, row, col))
                << "row " << row << ", column " << col << " after\n"
                << qPrintable(actions.join(QLatin1Char('\n')));
    }
}

// What it meets.

QAbstractButton* WindowMonkey::pressButton(MsgBox const& box) {
    QList<QAbstractButton*> const buttons = box.buttons();
    QAbstractButton* const button = buttons.value(number(int(buttons.size())));
    note(QStringLiteral("box '%1': %2").arg(box.text().section(QLatin1Char('\n'), 0, 0), button->text()));
    if (chance(20))
        QCoreApplication::processEvents();
    return button;
}

/// Dialogs and menus run loops of their own, in which only this still acts. Each call is a timer of its own, as a timer
/// does not go off again within what it has started.
void WindowMonkey::tend() {
    constexpr int often = 2;
    QTimer::singleShot(often, &tending, [this] { tend(); });
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        menu->close();
        return;
    }
    QWidget* const modal = QApplication::activeModalWidget();
    if (auto* const box = qobject_cast<QMessageBox*>(modal)) { // the file dialog's own questions
        box->buttons().value(number(int(box->buttons().size())))->click();
        return;
    }
    if (auto* const dialog = qobject_cast<QFileDialog*>(modal)) {
        if (chance(50)) {
            QString const name = fileName();
            note(QStringLiteral("file dialog ") + name);
            dialog->selectFile(directory.filePath(name));
            static_cast<QDialog*>(dialog)->accept();
        } else {
            note(QStringLiteral("file dialog left"));
            dialog->reject();
        }
    }
}

QWidget* WindowMonkey::focus() const {
    QWidget* const focused = QApplication::focusWidget();
    return focused != nullptr ? focused : window->focusWidget();
}

QString WindowMonkey::word() {
    static std::array const words{"1",     "3",   "12,2", "0",  "-1",      "20",   "b2",    "a:c", "x",         "",
                                  "\"q\"", "a,b", "=1+1", "äö", "2020-01", "utf",  "(tab)", ";",   "on",        "row 2",
                                  "  s ",  "007", "1e5",  "c",  "rfc",     "hide", "sort",  "2 2", "2147483647"};
    return QString::fromUtf8(words[std::size_t(number(int(words.size())))]);
}

QString WindowMonkey::fileName() {
    static std::array const names{"a.csv", "b.csv", "c.tsv", "d", "e.csv", "f.txt"};
    return QString::fromLatin1(names[std::size_t(number(int(names.size())))]);
}

QByteArray WindowMonkey::fileContent() {
    QByteArray content;
    for (int rows = chance(5) ? 3000 : number(15); rows > 0; --rows) {
        for (int cols = number(6); cols >= 0; --cols) {
            QString text = word().replace(QLatin1Char('"'), QLatin1String("\"\""));
            content += chance(30) ? QByteArray() : '"' + text.toUtf8() + (chance(5) ? "\nx" : "") + '"';
            content += cols > 0 ? "," : "\n";
        }
    }
    return content;
}

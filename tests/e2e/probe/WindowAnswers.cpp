#include "e2e/probe/WindowAnswers.h"

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/OptionListWidget.h"
#include "app/launcher/PrevOptionWidget.h"
#include "view/EditorPane.h"
#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QAbstractAnimation>
#include <QAbstractButton>
#include <QApplication>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTimer>

namespace {

QString plain(QString text) {
    return text.remove(u'&').section(u'\t', 0, 0);
}

QJsonObject error(QString const& sentence) {
    return {{QStringLiteral("error"), sentence}};
}

QJsonArray toJson(QWidget const& widget, QRect const& rect) {
    QRect const onScreen(widget.mapToGlobal(rect.topLeft()), rect.size());
    qreal const scale = widget.devicePixelRatio();
    QJsonArray numbers;
    for (int const number : {onScreen.x(), onScreen.y(), onScreen.width(), onScreen.height()})
        numbers.append(qRound(number * scale));
    return numbers;
}

/// Whether a press in the middle of a part of a widget reaches it, or an editor that lies on it.
bool isInSight(QWidget const& widget, QRect const& rect) {
    if (!widget.isVisible() || rect.isEmpty())
        return false;
    QWidget const* const window = widget.window();
    QWidget const* const top = window->childAt(widget.mapTo(window, rect.center()));
    return top != nullptr && (top == &widget || widget.isAncestorOf(top));
}

/// The window of the program that is in front, or the only one.
MainWindow* mainWindow() {
    for (QWidget* widget = QApplication::activeWindow(); widget != nullptr; widget = widget->parentWidget()) {
        if (auto* const window = qobject_cast<MainWindow*>(widget))
            return window;
    }
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const window = qobject_cast<MainWindow*>(widget);
        if (window != nullptr && window->isVisible())
            return window;
    }
    return nullptr;
}

TableView* activeTable() {
    MainWindow const* const window = mainWindow();
    return window == nullptr ? nullptr : window->getActiveTable();
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// The views of the active table, the one in front first.
std::vector<AbstractTableView*> views() {
    TableView* const table = activeTable();
    if (table == nullptr)
        return {};
    std::vector<AbstractTableView*> all;
    for (FrozenTableView* const band :
         {table->getCornerFrozenView(), table->getHorizontalFrozenView(), table->getVerticalFrozenView()}) {
        if (band->isVisible() && band->hasModel())
            all.push_back(band);
    }
    all.push_back(table);
    return all;
}

/// A part of a view, empty if the view does not show what was looked for.
struct Part {
    QWidget const* widget = nullptr;
    QRect rect;

    qint64 area() const { return qint64(rect.width()) * rect.height(); }
};

/// The largest part in sight of what the views show of a thing; `partOf` gives that of one view. A band may show a rim
/// of what is behind it.
template <typename PartOf>
Part largestPart(PartOf const& partOf) {
    Part largest;
    for (AbstractTableView const* const view : views()) {
        Part part = partOf(*view);
        if (part.widget == nullptr)
            continue;
        part.rect &= part.widget->rect();
        if (isInSight(*part.widget, part.rect) && (largest.widget == nullptr || part.area() > largest.area()))
            largest = part;
    }
    return largest;
}

QJsonObject cell(QJsonObject const& question) {
    int const row = question[QStringLiteral("row")].toInt();
    int const col = question[QStringLiteral("col")].toInt();
    Part const part = largestPart([&](AbstractTableView const& view) {
        return Part{view.viewport(), view.visualRect(view.model()->index(row, col))};
    });
    if (part.widget == nullptr)
        return error(QStringLiteral("cell (%1, %2) is not in sight").arg(row).arg(col));
    return {{QStringLiteral("rect"), toJson(*part.widget, part.rect)},
            {QStringLiteral("text"), activeTable()->model()->index(row, col).data().toString()}};
}

bool isRows(QJsonObject const& question) {
    return question[QStringLiteral("axis")].toString() == QLatin1String("rows");
}

QJsonObject label(QJsonObject const& question) {
    bool const rows = isRows(question);
    int const line = question[QStringLiteral("line")].toInt();
    Part const part = largestPart([&](AbstractTableView const& view) {
        HeaderView const& header = rows ? *view.getVerticalHeaderView() : *view.getHorizontalHeaderView();
        if (line >= header.count())
            return Part{};
        QWidget const* const viewport = header.viewport();
        int const start = header.sectionViewportPosition(line);
        int const size = header.sectionSize(line);
        return Part{viewport,
                    rows ? QRect(0, start, viewport->width(), size) : QRect(start, 0, size, viewport->height())};
    });
    if (part.widget == nullptr)
        return error(QStringLiteral("the label %1 is not in sight").arg(line));
    QRect const& rect = part.rect;
    QRect const edge =
        rows ? QRect(rect.bottomLeft(), QSize(rect.width(), 1)) : QRect(rect.topRight(), QSize(1, rect.height()));
    return {{QStringLiteral("rect"), toJson(*part.widget, rect)}, {QStringLiteral("edge"), toJson(*part.widget, edge)}};
}

QJsonObject scrollBar(QJsonObject const& question) {
    struct OpenBar : QScrollBar {
        using QScrollBar::initStyleOption;
    };
    TableView const* const table = activeTable();
    if (table == nullptr)
        return error(QStringLiteral("there is no table"));
    QScrollBar const* const bar = isRows(question) ? table->verticalScrollBar() : table->horizontalScrollBar();
    if (!isInSight(*bar, bar->rect()))
        return error(QStringLiteral("the scroll bar is not in sight"));
    QStyleOptionSlider option;
    (bar->*(&OpenBar::initStyleOption))(&option);
    QRect const handle = bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, bar);
    return {{QStringLiteral("rect"), toJson(*bar, bar->rect())}, {QStringLiteral("handle"), toJson(*bar, handle)}};
}

QJsonObject grid(QJsonObject const&) {
    TableView const* const table = activeTable();
    if (table == nullptr || !table->isVisible())
        return error(QStringLiteral("there is no table"));
    return {{QStringLiteral("rect"), toJson(*table->viewport(), table->viewport()->rect())}};
}

QString textOf(QWidget const& widget) {
    if (auto const* const text = qobject_cast<QLabel const*>(&widget))
        return text->text();
    if (auto const* const editor = qobject_cast<QLineEdit const*>(&widget))
        return editor->text();
    if (auto const* const button = qobject_cast<QAbstractButton const*>(&widget))
        return plain(button->text());
    return {};
}

QJsonObject describe(QWidget const& widget) {
    return {{QStringLiteral("rect"), toJson(widget, widget.rect())},
            {QStringLiteral("text"), textOf(widget)},
            {QStringLiteral("enabled"), widget.isEnabled()}};
}

/// What lies in the window with the focus.
template <typename Matches>
QJsonObject find(QString const& name, Matches const& matches) {
    QWidget const* const window = QApplication::activeWindow();
    if (window != nullptr) {
        for (QWidget const* const widget : window->findChildren<QWidget*>()) {
            if (matches(*widget) && isInSight(*widget, widget->rect()))
                return describe(*widget);
        }
    }
    return error(QStringLiteral("\"%1\" is not in sight").arg(name));
}

QJsonObject button(QJsonObject const& question) {
    QString const text = question[QStringLiteral("text")].toString();
    return find(text, [&](QWidget const& widget) {
        return qobject_cast<QAbstractButton const*>(&widget) != nullptr && textOf(widget) == text;
    });
}

QJsonObject widgetOfName(QJsonObject const& question) {
    QString const name = question[QStringLiteral("name")].toString();
    return find(name, [&](QWidget const& widget) {
        return widget.accessibleName() == name || widget.objectName() == name ||
               name == QLatin1String(widget.metaObject()->className());
    });
}

QJsonObject entry(QJsonObject const& question) {
    QString const text = question[QStringLiteral("text")].toString();
    if (QMenu const* const menu = openMenu()) {
        for (QAction* const action : menu->actions()) {
            if (plain(action->text()) == text)
                return {{QStringLiteral("rect"), toJson(*menu, menu->actionGeometry(action))},
                        {QStringLiteral("text"), text},
                        {QStringLiteral("enabled"), action->isEnabled()}};
        }
    }
    return error(QStringLiteral("no menu offers \"%1\"").arg(text));
}

/// Whether nothing is under way that will change the window without further input.
bool isIdle(MainWindow const& window) {
    for (TableView const* const table : window.getPaneView()->getTables()) {
        if (table->isLoading() || table->isSorting())
            return false;
    }
    for (auto const* const animation : window.findChildren<QAbstractAnimation*>()) {
        if (animation->state() == QAbstractAnimation::Running)
            return false;
    }
    for (auto const* const timer : window.findChildren<QTimer*>()) {
        if (timer->isActive() && timer->isSingleShot())
            return false;
    }
    return true;
}

void addTable(QJsonObject& state, TableView& table) {
    Range const& mainCell = table.tableModel()->getMainCell();
    state[QStringLiteral("file")] = table.tableModel()->getTableName();
    state[QStringLiteral("mainCell")] = QJsonArray{mainCell.row, mainCell.col};
    state[QStringLiteral("selected")] = table.tableModel()->numSelectedCells();
    state[QStringLiteral("changed")] = !table.undoStack()->isClean();
    state[QStringLiteral("editing")] = table.isEditing();
    state[QStringLiteral("scroll")] =
        QJsonArray{table.verticalScrollBar()->value(), table.horizontalScrollBar()->value()};
}

void addLauncher(QJsonObject& state, MainWindow const& window) {
    Launcher const* const launcher = window.getPaneView()->getLauncher();
    if (launcher == nullptr)
        return;
    state[QStringLiteral("launcher")] = launcher->getEditor()->text();
    state[QStringLiteral("answer")] = launcher->getSelectedResponseString();
    OptionListWidget const* const options = launcher->getOptionList();
    state[QStringLiteral("options")] = options == nullptr ? 0 : options->shownCount();
    state[QStringLiteral("answered")] = window.findChildren<PrevOptionWidget*>().size();
}

QJsonObject describeState(QJsonObject const&) {
    QJsonObject state;
    QWidget const* const active = QApplication::activeWindow();
    state[QStringLiteral("focus")] =
        QApplication::focusWidget() == nullptr ? "" : QApplication::focusWidget()->metaObject()->className();
    state[QStringLiteral("active")] = active == nullptr ? "" : active->metaObject()->className();
    if (auto const* const box = qobject_cast<MsgBox const*>(QApplication::activeModalWidget()))
        state[QStringLiteral("message")] = box->text();
    if (QMenu const* const menu = openMenu()) {
        QJsonArray entries;
        for (QAction const* const action : menu->actions())
            entries.append(plain(action->text()));
        state[QStringLiteral("menu")] = plain(menu->title());
        state[QStringLiteral("entries")] = entries;
        if (QAction const* const chosen = menu->activeAction())
            state[QStringLiteral("chosen")] = plain(chosen->text());
    }
    MainWindow const* const window = mainWindow();
    if (window == nullptr)
        return state;
    state[QStringLiteral("idle")] = isIdle(*window);
    state[QStringLiteral("pane")] = window->getPaneView()->isEditorPaneShown();
    addLauncher(state, *window);
    if (TableView* const table = window->getActiveTable())
        addTable(state, *table);
    return state;
}

struct Question {
    char const* word;
    QJsonObject (*answer)(QJsonObject const& question);
};

constexpr Question questions[] = {
    {"state", describeState}, {"cell", cell},     {"label", label}, {"scrollbar", scrollBar},
    {"grid", grid},           {"button", button}, {"entry", entry}, {"widget", widgetOfName},
};

} // namespace

QJsonObject WindowAnswers::answer(QJsonObject const& question) {
    QString const word = question[QStringLiteral("ask")].toString();
    for (Question const& known : questions) {
        if (word == QLatin1String(known.word))
            return known.answer(question);
    }
    return error(QStringLiteral("nobody knows what \"%1\" asks for").arg(word));
}

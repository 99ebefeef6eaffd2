#include "view/ContextMenuEntries.h"

#include "core/ModalHold.h"

#include <QAction>
#include <QMenu>

#include <memory>
#include <optional>

namespace {

constexpr char const* separator = "";

constexpr char const* multiCellEntries[] = {
    "Clear Cell Contents",
    "Copy Main Cell Contents to All Selected Cells",
    separator,
    "Cut Cell(s)",
    "Copy Cell(s)",
    "Copy Cell(s) to Markdown",
    "Copy Cell(s) to HTML",
    "Paste Cell(s)",
    "Paste Cell(s) (Special)",
    separator,
    "Move Cell Contents To ...",
    "Insert Row(s) Before",
    "Insert Column(s) Before",
    "Remove Row(s)",
    "Remove Column(s)",
    separator,
    "Filter Selected Column(s) with Selected Cell Contents",
    "Remove All Filters",
};

constexpr char const* singleCellEntries[] = {
    "Edit Selected Cell",
    "Append Cell Contents",
    "Clear Cell Contents",
    separator,
    "Cut Cell(s)",
    "Copy Cell(s)",
    "Copy Cell(s) to Markdown",
    "Copy Cell(s) to HTML",
    "Paste Cell(s)",
    "Paste Cell(s) (Special)",
    separator,
    "Insert Row(s) Before",
    "Insert Column(s) Before",
    "Remove Row(s)",
    "Remove Column(s)",
    separator,
    "Filter Selected Column",
    "Filter Selected Column(s) with Selected Cell Contents",
    "Remove All Filters",
    separator,
    "Hide Selected Row(s)",
    "Hide Selected Column(s)",
    "Show All Hidden Row(s)",
    "Show All Hidden Column(s)",
};

constexpr char const* commonEntries[] = {
    separator,
    "Set Headers to Selected Cell",
    "Set Header Rows to Selected Row",
    "Set Header Columns to Selected Column",
    "Remove All Headers",
    "Remove Header Rows",
    "Remove Header Columns",
    separator,
    "Follow Selected Hyperlink(s)",
};

constexpr char const* rowHeaderEntries[] = {
    "Cut Cell(s)",
    "Copy Cell(s)",
    "Paste Cell(s)",
    separator,
    "Move Row(s) Up",
    "Move Row(s) Down",
    "Move Row(s) Just Above Row ...",
    "Insert Row(s) Before",
    "Remove Row(s)",
    "Clear Cell Contents",
    "Duplicate Row(s)",
    separator,
    "Filter Selected Row",
    "Sort Selected Row - Ascending",
    "Sort Selected Row - Descending",
    separator,
    "Hide Selected Row(s)",
    separator,
    "Set Header Rows to Selected Row",
};

constexpr char const* columnHeaderEntries[] = {
    "Cut Cell(s)",
    "Copy Cell(s)",
    "Paste Cell(s)",
    separator,
    "Move Column(s) Left",
    "Move Column(s) Right",
    "Move Column(s) to the Left of Column ...",
    "Insert Column(s) Before",
    "Remove Column(s)",
    "Clear Cell Contents",
    "Duplicate Column(s)",
    separator,
    "Filter Selected Column",
    "Sort Selected Column - Ascending",
    "Sort Selected Column - Descending",
    separator,
    "Hide Selected Column(s)",
    separator,
    "Set Header Columns to Selected Column",
};

} // namespace

ContextMenuEntries cellMenuEntries(bool multiCellSelection) {
    return multiCellSelection ? ContextMenuEntries(multiCellEntries) : ContextMenuEntries(singleCellEntries);
}

ContextMenuEntries commonCellMenuEntries() {
    return commonEntries;
}

ContextMenuEntries headerMenuEntries(Qt::Orientation orientation) {
    return orientation == Qt::Vertical ? ContextMenuEntries(rowHeaderEntries) : ContextMenuEntries(columnHeaderEntries);
}

void appendToMenu(QMenu& menu, ContextMenuEntries entries, CommandActions const& actions) {
    bool separate = false;
    for (char const* const name : entries) {
        QAction* const action = actions.value(QLatin1String(name));
        if (*name == '\0') {
            separate = !menu.isEmpty();
        } else if (action != nullptr) {
            if (separate)
                menu.addSeparator();
            separate = false;
            menu.addAction(action);
        }
    }
}

// The hold goes with the menu if that is deleted while it is open.
void holdWhileShown(QMenu& menu) {
    auto const hold = std::make_shared<std::optional<ModalHold>>();
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [hold] { hold->emplace(); });
    QObject::connect(&menu, &QMenu::aboutToHide, &menu, [hold] { hold->reset(); });
}

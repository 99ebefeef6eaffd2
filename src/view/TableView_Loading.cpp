// Loading: how a table is filled from its file, in the background as a rule, and what becomes of the focus meanwhile.

#include "view/TableView.h"
#include "view/TypingGuard.h"

namespace {

/// How many cells a section's size is judged by, falling with the number of rows.
int precisionForRows(int rows) {
    if (rows > 999999)
        return 50;
    return rows > 99999 ? 100 : 500;
}

} // namespace

/// Drops what a reload takes from the user, but only once the file is open.
bool TableView::beginReload(bool asReadOnly) {
    if (!tableModel()->openForLoad(getFilepath(), asReadOnly))
        return false;
    stopEditing(false);
    stack.clear();
    return true;
}

bool TableView::readFileAgain() {
    if (!beginReload(readOnly))
        return false;
    tableModel()->takeFileDialect();
    return loadCSV(getFilepath(), true);
}

bool TableView::reloadFile(QString const& delimiter, EncodingType encoding, ParsingStandard standard) {
    TableModel& model = *tableModel();
    bool const same =
        delimiter == model.getDelimiter() && encoding == model.getEncoding() && standard == model.getParsingStandard();
    if (same || getFilepath().isEmpty() || !beginReload(readOnly))
        return false;
    return loadInBackground([&] { return model.reloadFile(delimiter, encoding, standard); });
}

void TableView::reloadFileReadOnly(bool on) {
    if (getFilepath().isEmpty()) {
        setReadOnly(on);
    } else if (beginReload(on)) {
        setReadOnly(on);
        loadCSV(getFilepath(), true);
    }
}

/// The file is open by now.
bool TableView::loadInBackground(std::function<bool()> const& load) {
    hideForLoad();
    bool const begun = load();
    emit loadBegunSignal();
    return begun;
}

/// What has the focus within the table would pass it on to whatever comes next. Its parent keeps it for the table.
void TableView::hideForLoad() {
    if (hasFocusInside() && parentWidget() != nullptr)
        parentWidget()->setFocus();
    hide();
    setUpdatesEnabled(false);
}

void TableView::showAfterLoad() {
    bool const focusIsKept = parentWidget() != nullptr && window()->focusWidget() == parentWidget();
    setUpdatesEnabled(true);
    show();
    if (focusIsKept)
        setFocus();
}

void TableView::takeFocus() {
    if (isLoading() && parentWidget() != nullptr)
        parentWidget()->setFocus();
    else
        setFocus();
}

bool TableView::hasFocusInside() const {
    QWidget const* const focused = window()->focusWidget();
    return focused != nullptr && (focused == this || isAncestorOf(focused) || focused == parentWidget());
}

bool TableView::loadCSV(QString const& path, bool background) {
    TableModel* const model = tableModel();
    auto const load = [&] {
        return model->loadCSV(path, background, readOnly, model->getDelimiter(), model->getSaveDelimiter(),
                              model->getEncoding(), model->getParsingStandard());
    };
    if (background)
        return model->openForLoad(path, readOnly) && loadInBackground(load);
    bool const opened = load();
    takeReadOnlyFromModel();
    setResizeContentsPrecision(50);
    warnAutoFitIfLargeFile();
    enforceAutoFitColWidth(true);
    enforceAutoFitRowHeight(true);
    refreshView();
    return opened;
}

/// A file of which the table holds only a part must not be overwritten by it.
void TableView::takeReadOnlyFromModel() {
    if (tableModel()->isReadOnly() && !readOnly)
        setReadOnly(true);
}

// The scanner waits a moment at each report for this answer, so that it does not run ahead of the event queue.
void TableView::onStartProgressUpdate() {
    tableModel()->wakeLoader();
}

void TableView::onLoadProgressUpdate(int, int, int) {
    tableModel()->wakeLoader();
}

void TableView::onLoadFinished() {
    takeReadOnlyFromModel();
    setResizeContentsPrecision(precisionForRows(tableModel()->rowCountModel()));
    bool const asks = isLargeForAutoFit(Axis::Rows) || isLargeForAutoFit(Axis::Columns);
    if (!asks)
        fitAfterLoad();
    showAfterLoad();
    if (asks) // whatever the user has turned to meanwhile
        TypingGuard::whenStill(this, [this] {
            if (isLoading())
                return;
            warnAutoFitIfLargeFile();
            fitAfterLoad();
        });
}

void TableView::fitAfterLoad() {
    enforceAutoFitColWidth(false);
    enforceAutoFitRowHeight(false);
}

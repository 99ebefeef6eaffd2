#include "view/TableView.h"

#include <QHeaderView>

TableView::TableView(QWidget* parent) : QTableView(parent), model(new TableModel(this)) {
    setModel(model);
    setAccessibleName(tr("Table"));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(model, &TableModel::startProgressUpdateSignal, this, &TableView::startProgressUpdateSignal);
    connect(model, &TableModel::loadProgressUpdateSignal, this, &TableView::loadProgressUpdateSignal);
    connect(model, &TableModel::loadFinishedSignal, this, &TableView::loadFinishedSignal);
    connect(model, &TableModel::tableSizeChangedSignal, this, &TableView::tableSizeChangedSignal);
}

TableView::~TableView() = default;

void TableView::loadCSV(QString const& path, bool background) {
    if (background) {
        hide();
        loading = true;
        setUpdatesEnabled(false);
    }
    model->loadCSV(path, background, readOnly, model->getDelimiter(), model->getSaveDelimiter(), model->getEncoding(),
                   model->getParsingStandard());
}

void TableView::setReadOnly(bool on) {
    readOnly = on;
    model->setReadOnly(on);
}

void TableView::setExtensionData(ExtensionData const& data) {
    model->setExtension(data.extension);
    model->setDelimiter(data.delimiter, data.saveDelimiter);
    model->setLineEnding(data.lineEnding);
    model->setEncoding(data.encoding);
    model->setParsingStandard(data.parsingStandard);
}

QString TableView::getFilepath() const {
    return model->getFilepath();
}

// The scanner waits a moment at each report for this answer, so that it does not run ahead of the event queue.
void TableView::onStartProgressUpdate() {
    model->wakeLoader();
}

void TableView::onLoadProgressUpdate(int, int, int) {
    model->wakeLoader();
}

void TableView::onLoadFinished() {
    setUpdatesEnabled(true);
    loading = false;
    show();
}

#include "storage/EditableDataContainer.h"
#include "storage/TableData.h"

#include <QCoreApplication>

std::unique_ptr<AbstractDataContainer> TableData::makeContainer(DataContainerType /*type*/) {
    // Read-only tables are read into memory too, until there is a container that works from an index of the file.
    return std::make_unique<EditableDataContainer>();
}

void TableData::setContainer(std::unique_ptr<AbstractDataContainer> container) {
    dataContainer = std::move(container);
    editableContainer = qobject_cast<EditableDataContainer*>(dataContainer.get());
    dataContainer->setProgressUpdateMutex(progressMutex, progressCondition);
}

void TableData::setProgressUpdateMutex(QMutex* mutex, QWaitCondition* condition) {
    progressMutex = mutex;
    progressCondition = condition;
    dataContainer->setProgressUpdateMutex(mutex, condition);
}

void TableData::loadCSV(QString const& path, bool useThread, DataContainerType type, QString const& delimiter,
                        QString const& saveDelimiter, EncodingType encoding, ParsingStandard standard) {
    dataContainer->disconnect(this);
    stopLoadThread(true);
    ++loadNumber;
    setContainer(makeContainer(type));
    dataContainerType = type;
    axes[0].count = 0;
    axes[1].count = 0;
    transposed = false;
    resetSizes();

    dataContainer->setFilepath(path);
    setDelimiter(delimiter, saveDelimiter);
    setLineEnding(lineEnding);
    setEncoding(encoding, false);
    setParsingStandard(standard);
    setSaveWithTrailingDelimiters(saveWithTrailingDelimiters);

    if (useThread) {
        startLoadThread();
    } else {
        dataContainer->loadCSV();
        onLoadFinished();
    }
}

void TableData::startLoadThread() {
    AbstractDataContainer* const container = dataContainer.get();
    loadThread = std::make_unique<QThread>();
    container->moveToThread(loadThread.get());
    connect(loadThread.get(), &QThread::started, container, &AbstractDataContainer::loadCSV, Qt::QueuedConnection);

    // A signal under way when its container is replaced still arrives, and by then has no sender; the next container
    // may even stand at the same address. The number of the load tells it apart.
    auto const forward = [&](auto signal, auto&& reaction) {
        auto guarded = [this, load = loadNumber, reaction](auto... values) {
            if (load == loadNumber)
                reaction(values...);
        };
        connect(container, signal, this, guarded, Qt::QueuedConnection);
    };
    forward(&AbstractDataContainer::startProgressUpdateSignal, [this] { emit startProgressUpdateSignal(); });
    forward(&AbstractDataContainer::loadProgressUpdateSignal,
            [this](int done, int steps, int sizeMiB) { emit loadProgressUpdateSignal(done, steps, sizeMiB); });
    forward(&AbstractDataContainer::loadFinishedSignal, [this] { onLoadFinished(); });

    loading = true;
    loadThread->start();
}

void TableData::onLoadFinished() {
    loading = false;
    stopLoadThread(false);
    along(Axis::Rows).count = dataContainer->numRows();
    along(Axis::Columns).count = dataContainer->numCols();
    emit loadFinishedSignal();
    signalSize();
}

void TableData::stopLoadThread(bool cancel) {
    if (cancel && loading)
        dataContainer->setQuit(true);
    if (loadThread) {
        if (loadThread->isRunning())
            loadThread->quit();
        loadThread->wait();
        loadThread.reset();
        // Without a thread the container can be drawn to this one. A load that the thread had not begun must not
        // follow it here.
        QCoreApplication::removePostedEvents(dataContainer.get());
        dataContainer->moveToThread(thread());
    }
    loading = false;
}

void TableData::setDataContainerType(DataContainerType type) {
    if (type == dataContainerType)
        return;
    loadCSV(dataContainer->getFilepath(), true, type, dataContainer->getDelimiter(), dataContainer->getSaveDelimiter(),
            dataContainer->getEncoding(), dataContainer->getParsingStandard());
}

bool TableData::saveCSV(bool ignoreMaps, bool skipConcealed) {
    emit saveStartedSignal(getFilepath());
    bool const saved = dataContainer->saveCSV(ignoreMaps, transposed, skipMask(Axis::Rows, skipConcealed),
                                              skipMask(Axis::Columns, skipConcealed));
    emit saveFinishedSignal(getFilepath());
    return saved;
}

bool TableData::saveCSV(QString const& path, bool ignoreMaps, bool skipConcealed) {
    emit saveStartedSignal(path);
    bool const saved = dataContainer->saveCSV(path, ignoreMaps, transposed, skipMask(Axis::Rows, skipConcealed),
                                              skipMask(Axis::Columns, skipConcealed));
    emit saveFinishedSignal(getFilepath());
    return saved;
}

TableData::Indexes TableData::skipMask(Axis axis, bool skipConcealed) const {
    return skipConcealed ? along(axis).concealed.indexes() : Indexes{};
}

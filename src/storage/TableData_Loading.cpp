#include "storage/EditableDataContainer.h"
#include "storage/TableData.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

std::unique_ptr<AbstractDataContainer> TableData::makeContainer(DataContainerType /*type*/) {
    // Read-only tables are read into memory too, until there is a container that works from an index of the file.
    return std::make_unique<EditableDataContainer>();
}

void TableData::setContainer(Container container) {
    dataContainer = std::move(container);
    editableContainer = qobject_cast<EditableDataContainer*>(dataContainer.get());
    dataContainer->setProgressUpdateMutex(progressMutex, progressCondition);
}

void TableData::setProgressUpdateMutex(QMutex* mutex, QWaitCondition* condition) {
    progressMutex = mutex;
    progressCondition = condition;
    dataContainer->setProgressUpdateMutex(mutex, condition);
}

bool TableData::openForLoad(QString const& path, DataContainerType type) {
    if (opened && opened->getFilepath() == path)
        return true;
    opened = makeContainer(type);
    opened->setFilepath(path);
    if (opened->openForLoad())
        return true;
    QString const reason = opened->getLoadResult().reason;
    opened.reset();
    emit loadFailedSignal(reason);
    return false;
}

/// The container that has been opened for this load, or a new one whose file is still to be opened.
TableData::Container TableData::takeOpened(QString const& path, DataContainerType type) {
    Container next = std::move(opened);
    if (!next || next->getFilepath() != path) {
        next = makeContainer(type);
        next->setFilepath(path);
    }
    return next;
}

void TableData::passDialectTo(AbstractDataContainer& container) const {
    container.setDelimiter(delimiter, saveDelimiter);
    container.setLineEnding(lineEnding);
    container.setEncoding(encoding);
    container.setParsingStandard(parsingStandard);
    container.setSaveWithTrailingDelimiters(saveWithTrailingDelimiters);
    container.setLoadLimits(loadLimits);
}

bool TableData::loadCSV(QString const& path, bool useThread, DataContainerType type, QString const& newDelimiter,
                        QString const& newSaveDelimiter, EncodingType newEncoding, ParsingStandard standard) {
    if (useThread && !openForLoad(path, type))
        return false;
    Container next = takeOpened(path, type);
    stopLoadThread(true);
    locked = false;
    Container former = std::move(dataContainer);
    setContainer(makeContainer(type));
    dataContainerType = type;
    transposed = false;
    resetSizes();

    dataContainer->setFilepath(path);
    setDelimiter(newDelimiter, newSaveDelimiter);
    setLineEnding(lineEnding);
    setEncoding(newEncoding, false);
    setParsingStandard(standard);
    setSaveWithTrailingDelimiters(saveWithTrailingDelimiters);
    passDialectTo(*next);
    next->setProgressUpdateMutex(progressMutex, progressCondition);

    coming = std::move(next);
    if (useThread) {
        startLoadThread(std::move(former));
        return true;
    }
    former.reset();
    coming->loadCSV();
    onLoadFinished();
    return getLoadResult().end != LoadEnd::None;
}

void TableData::startLoadThread(Container former) {
    AbstractDataContainer* const container = coming.get();
    loadThread = std::make_unique<QThread>();
    container->moveToThread(loadThread.get());
    // The end of a large table takes a while, so the thread sees to it, before it needs the memory.
    former->moveToThread(loadThread.get());
    connect(loadThread.get(), &QThread::started,
            [last = std::shared_ptr<AbstractDataContainer>(std::move(former))]() mutable { last.reset(); });
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
    loadThread->start();
}

void TableData::onLoadFinished() {
    takeOverLoaded();
    if (getLoadResult().beyondLimits)
        dataContainerType = DataContainerType::ReadOnly;
    emit loadFinishedSignal();
    signalSize();
}

void TableData::takeOverLoaded() {
    Container loaded = std::move(coming);
    endLoadThread(loaded.get());
    setContainer(std::move(loaded));
    // The one option that may change during a load.
    dataContainer->setSaveWithTrailingDelimiters(saveWithTrailingDelimiters);
}

void TableData::stopLoadThread(bool cancel) {
    if (cancel && coming)
        coming->setQuit(true);
    endLoadThread(coming.get());
    coming.reset();
    ++loadNumber; // its signals may still be on their way
}

void TableData::endLoadThread(AbstractDataContainer* container) {
    if (!loadThread)
        return;
    if (loadThread->isRunning())
        loadThread->quit();
    loadThread->wait();
    loadThread.reset();
    // Without a thread the container can be drawn to this one. A load that the thread had not begun must not follow it
    // here.
    if (container) {
        QCoreApplication::removePostedEvents(container);
        container->moveToThread(thread());
    }
}

void TableData::setDataContainerType(DataContainerType type) {
    if (type == dataContainerType)
        return;
    loadCSV(dataContainer->getFilepath(), true, type, dataContainer->getDelimiter(), dataContainer->getSaveDelimiter(),
            dataContainer->getEncoding(), dataContainer->getParsingStandard());
}

bool TableData::makeEditable() {
    if (editableContainer == nullptr || isLocked())
        return false;
    dataContainerType = DataContainerType::Editable;
    readOnly = false;
    return true;
}

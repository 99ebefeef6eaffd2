#include "storage/EditableDataContainer.h"
#include "storage/Reading.h"
#include "storage/ScannerFile.h"

#include <QThread>

#include <algorithm>
#include <utility>

namespace {

constexpr std::uint64_t largeFileBytes = 0x1800000;
constexpr std::uint64_t mostBlockBytes = 0x10000000;
constexpr int progressWaitMs = 1;
constexpr int dialogDelayMs = 500;

/// A file is read as so many whole blocks as its size asked for, so one that grows meanwhile gives up to this much.
std::uint64_t bytesOfBlocks(std::uint64_t fileBytes) {
    std::uint64_t const block = std::min(fileBytes, mostBlockBytes);
    return (fileBytes + block - 1) / block * block;
}

std::string bytesOf(std::vector<char> const& bytes) {
    return {bytes.begin(), bytes.end()};
}

} // namespace

bool EditableDataContainer::loadCSV() {
    switch (scanKindOf(delimiterBytes)) {
    case ScanKind::ByteSequence: return loadCSVByteSequence();
    case ScanKind::NoDelimiter: return loadCSVNoDelimiter();
    case ScanKind::MultiByte: return loadCSVMultiByte();
    case ScanKind::NoDelimiterMultiByte: return loadCSVNoDelimiterMultiByte();
    case ScanKind::OneByte: break;
    }
    return loadAs(ScanKind::OneByte);
}

bool EditableDataContainer::loadCSVByteSequence() {
    return loadAs(ScanKind::ByteSequence);
}

bool EditableDataContainer::loadCSVNoDelimiter() {
    return loadAs(ScanKind::NoDelimiter);
}

bool EditableDataContainer::loadCSVMultiByte() {
    return loadAs(ScanKind::MultiByte);
}

bool EditableDataContainer::loadCSVNoDelimiterMultiByte() {
    return loadAs(ScanKind::NoDelimiterMultiByte);
}

EditableDataContainer::ScanKind EditableDataContainer::scanKindOf(Bytes const& readDelimiter) const {
    if (bytesPerChar > 1)
        return readDelimiter.empty() ? ScanKind::NoDelimiterMultiByte : ScanKind::MultiByte;
    if (readDelimiter.empty())
        return ScanKind::NoDelimiter;
    return readDelimiter.size() > 1 ? ScanKind::ByteSequence : ScanKind::OneByte;
}

Reading EditableDataContainer::readingAs(ScanKind kind, Bytes const& readDelimiter) const {
    Bytes reading, saving, cr{'\r'}, lf{'\n'}, rs{'\x1e'}, quote{'"'}, doubledQuote;
    setKeyCharVecs(reading, saving, cr, lf, rs, quote, doubledQuote);
    bool const hasDelimiter = kind != ScanKind::NoDelimiter && kind != ScanKind::NoDelimiterMultiByte;
    ScannerDialect dialect;
    dialect.unitBytes = bytesPerChar;
    dialect.delimiter = bytesOf(readDelimiter);
    dialect.shifts = encoding == EncodingType::Iso2022Jp;
    dialect.quotes = hasDelimiter && parsingStandard != ParsingStandard::DelimiterOnly;
    dialect.cr = bytesOf(cr);
    dialect.lf = bytesOf(lf);
    dialect.rs = bytesOf(rs);
    dialect.quote = bytesOf(quote);
    if (kind == ScanKind::MultiByte)
        dialect.rs = dialect.lf; // a record separator is an ordinary character in wide encodings
    if (kind == ScanKind::NoDelimiterMultiByte)
        dialect.lf = dialect.rs; // here a line feed is one, and CR with a record separator counts as one row end
    return {kind == ScanKind::ByteSequence ? scanSequence : scanUnits, dialect};
}

bool EditableDataContainer::openForLoad() {
    opened = std::make_unique<ScannerFile>(filepath);
    if (opened->isOpen())
        return true;
    loadResult = {LoadEnd::None, opened->failure()};
    opened.reset();
    return false;
}

bool EditableDataContainer::loadAs(ScanKind kind) {
    if (!opened && !openForLoad())
        return false;
    std::unique_ptr<ScannerFile> const file = std::move(opened);
    fileSize = static_cast<qint64>(file->size());
    loadResult = {};
    fileStamp = file->stamp();
    if (fileSize == 0) {
        file->close();
        emit loadFinishedSignal();
        return true;
    }
    rows.clear();
    numRowsStored = 0;
    Reading const reading = readingAs(kind, delimiterBytes);
    ScannerResult const result = reading.scan(rows, jobOf(*file), reading.dialect);
    numRowsStored = storedRows();
    numColsStored = std::max(numColsStored, static_cast<int>(result.columns));
    if (result.beyondLimits)
        keepWithinLimits();
    else if (result.finished && !file->wasReadWhole())
        loadResult = {LoadEnd::Part, file->failure(), false, static_cast<qint64>(file->doneBytes())};
    file->close();
    if (result.finished)
        emit loadFinishedSignal();
    return result.finished;
}

ScannerJob EditableDataContainer::jobOf(ScannerFile& file) {
    ScannerJob job;
    job.bytes = bytesOfBlocks(file.size());
    job.read = [&file](char* to, std::size_t bytes) { return file.read(to, bytes); };
    job.markLength = [this](std::string_view start) {
        return static_cast<std::size_t>(computeTableBomOffset(start, true));
    };
    job.quit = &quit;
    job.limits.rows = static_cast<std::size_t>(loadLimits.rows);
    job.limits.columns = static_cast<std::size_t>(loadLimits.columns);
    if (file.size() < largeFileBytes)
        return job;
    announce([this] { emit startProgressUpdateSignal(); }, dialogDelayMs);
    int const steps = static_cast<int>(file.size() / ScannerJob::progressStep + 1);
    int const sizeMiB = static_cast<int>(file.size() / 0x100000);
    job.progress = [this, steps, sizeMiB](std::uint64_t done) {
        announce([&] { emit loadProgressUpdateSignal(static_cast<int>(done), steps, sizeMiB); }, 0);
    };
    return job;
}

/// The scan may have gone a little too far: the table ends with the last row of those wanted, or with the last wanted
/// cell of the row that is too long.
void EditableDataContainer::keepWithinLimits() {
    bool const tooWide = numColsStored > loadLimits.columns;
    auto const limit = static_cast<std::size_t>(loadLimits.columns);
    auto end = std::min(rows.size(), static_cast<std::size_t>(loadLimits.rows));
    for (std::size_t row = 0; tooWide && row < end; ++row) {
        if (rows.cellCount(row) > limit) {
            rows.removeCells(row, limit, rows.cellCount(row) - limit);
            end = row + 1;
        }
    }
    rows.resize(end);
    numRowsStored = storedRows();
    numColsStored = std::min(numColsStored, loadLimits.columns);
    loadResult = {LoadEnd::Part,
                  tooWide ? tr("It has more than %L1 columns.").arg(loadLimits.columns)
                          : tr("It has more than %L1 rows.").arg(loadLimits.rows),
                  true, 0};
}

/// Emits a progress signal under the owner's mutex and lets the GUI answer, which a GUI that is busy need not do.
void EditableDataContainer::announce(std::function<void()> const& emitSignal, int sleepMs) {
    if (progressMutex)
        progressMutex->lock();
    emitSignal();
    if (progressMutex && progressCondition) {
        progressCondition->wait(progressMutex, progressWaitMs);
        QThread::msleep(static_cast<unsigned long>(sleepMs));
    }
    if (progressMutex)
        progressMutex->unlock();
}

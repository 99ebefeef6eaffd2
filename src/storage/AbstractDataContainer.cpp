#include "storage/AbstractDataContainer.h"

#include "core/EncodingUtilities.h"
#include "storage/CellCodec.h"

#include <QDir>
#include <QFileInfo>

#include <new>
#include <utility>

namespace {

using Bytes = AbstractDataContainer::Bytes;

/// How a wide encoding spells one UTF-16 code unit. An unknown byte order counts as little-endian.
struct UnitLayout {
    int width; ///< bytes; 1 for the encodings that are not wide
    bool highByteFirst;
};

UnitLayout unitLayout(EncodingType type) {
    switch (type) {
    case EncodingType::Utf16BE:
    case EncodingType::Utf16GuessedBE: return {2, true};
    case EncodingType::Utf16:
    case EncodingType::Utf16LE:
    case EncodingType::Utf16GuessedLE: return {2, false};
    case EncodingType::Utf32BE:
    case EncodingType::Utf32GuessedBE: return {4, true};
    case EncodingType::Utf32:
    case EncodingType::Utf32LE:
    case EncodingType::Utf32GuessedLE: return {4, false};
    default: return {1, false};
    }
}

void appendUnit(Bytes& out, char16_t unit, UnitLayout layout) {
    for (int i = 0; i < layout.width; ++i) {
        auto const shift = 8 * (layout.highByteFirst ? layout.width - 1 - i : i);
        out.push_back(shift > 8 ? '\0' : static_cast<char>(unit >> shift));
    }
}

Bytes wideUnits(QString const& text, UnitLayout layout) {
    Bytes result;
    result.reserve(text.size() * layout.width);
    for (auto const c : text)
        appendUnit(result, c.unicode(), layout);
    return result;
}

/// An encoding of unknown byte order is settled by one of two marks.
struct OrderedForms {
    EncodingType big;
    EncodingType little;
};

bool hasUnknownOrder(EncodingType type) {
    return type == EncodingType::Utf16 || type == EncodingType::Utf32;
}

OrderedForms orderedForms(EncodingType type) {
    return type == EncodingType::Utf16 ? OrderedForms{EncodingType::Utf16BE, EncodingType::Utf16LE}
                                       : OrderedForms{EncodingType::Utf32BE, EncodingType::Utf32LE};
}

bool isMarkOf(Bytes const& mark, EncodingType type) {
    return mark == Utilities::getEncodingBom(type);
}

void removePath(QString& text, QString const& path) {
    text.remove(QLatin1Char('"') + path + QLatin1Char('"'));
    text.remove(QLatin1Char('\'') + path + QLatin1Char('\''));
    text.remove(path);
}

} // namespace

AbstractDataContainer::AbstractDataContainer(QObject* parent) : QObject(parent) {}

AbstractDataContainer::~AbstractDataContainer() = default;

std::vector<int> AbstractDataContainer::emptyRows(int, GetRowColMaskType, Mask const&) const {
    return {};
}

std::vector<int> AbstractDataContainer::emptyCols(int, GetRowColMaskType, Mask const&) const {
    return {};
}

int AbstractDataContainer::numEmptyRowsAtEnd() const {
    return -1;
}

int AbstractDataContainer::numEmptyColsAtEnd() const {
    return -1;
}

bool AbstractDataContainer::setValue(int const&, int const&, Bytes const&) {
    return false;
}

bool AbstractDataContainer::resizeRows(int) {
    return false;
}

bool AbstractDataContainer::resizeCols(int) {
    return false;
}

void AbstractDataContainer::clear() {}

bool AbstractDataContainer::setRow(int, Cells const&) {
    return false;
}

bool AbstractDataContainer::setCol(int, Cells const&) {
    return false;
}

bool AbstractDataContainer::insertRow(int, Cells const&) {
    return false;
}

bool AbstractDataContainer::insertCol(int, Cells const&) {
    return false;
}

bool AbstractDataContainer::insertRows(int, std::vector<Cells> const&) {
    return false;
}

bool AbstractDataContainer::insertCols(int, std::vector<Cells> const&) {
    return false;
}

bool AbstractDataContainer::insertEmptyRows(int, int) {
    return false;
}

bool AbstractDataContainer::insertEmptyCols(int, int) {
    return false;
}

bool AbstractDataContainer::removeRows(int, int) {
    return false;
}

bool AbstractDataContainer::removeCols(int, int) {
    return false;
}

bool AbstractDataContainer::copyRowContentsToAnotherRow(int, int) {
    return false;
}

bool AbstractDataContainer::copyColContentsToAnotherCol(int, int) {
    return false;
}

void AbstractDataContainer::setFilepath(QString const& path) {
    filepath = path;
}

QString AbstractDataContainer::getFilepath() const {
    return filepath;
}

void AbstractDataContainer::setDelimiter(QString const& newDelimiter, QString const& newSaveDelimiter) {
    delimiter = newDelimiter;
    saveDelimiter = newSaveDelimiter;
    updateDelimiterBytes();
}

void AbstractDataContainer::setLineEnding(LineEndingType type) {
    lineEnding = type;
}

void AbstractDataContainer::setEncoding(EncodingType type) {
    encoding = type;
    bytesPerChar = Utilities::numBytesPerChar(type);
    updateDelimiterBytes();
}

void AbstractDataContainer::setParsingStandard(ParsingStandard standard) {
    parsingStandard = standard;
}

void AbstractDataContainer::setSaveWithTrailingDelimiters(bool on) {
    saveWithTrailingDelimiters = on;
}

void AbstractDataContainer::setQuit(bool on) {
    quit = on;
}

void AbstractDataContainer::setProgressUpdateMutex(QMutex* mutex, QWaitCondition* condition) {
    progressMutex = mutex;
    progressCondition = condition;
}

Bytes AbstractDataContainer::encodeDelimiter(QString const& text) const {
    if (auto const layout = unitLayout(encoding); layout.width > 1)
        return wideUnits(text, layout);
    return CellCodec(encoding).encode(text);
}

void AbstractDataContainer::updateDelimiterBytes() {
    auto const onlyByte = [](Bytes const& bytes) { return bytes.size() == 1 ? bytes.front() : '\0'; };
    delimiterBytes = encodeDelimiter(delimiter);
    saveDelimiterBytes = encodeDelimiter(saveDelimiter);
    delimiterChar = onlyByte(delimiterBytes);
    saveDelimiterChar = onlyByte(saveDelimiterBytes);
}

void AbstractDataContainer::setKeyCharVecs(Bytes& delimiterOut, Bytes& saveDelimiterOut, Bytes& cr, Bytes& lf,
                                           Bytes& rs, Bytes& quote, Bytes& doubledQuote) const {
    delimiterOut = delimiterBytes;
    saveDelimiterOut = saveDelimiterBytes;
    if (auto const layout = unitLayout(encoding); layout.width > 1) {
        cr = wideUnits(QStringLiteral("\r"), layout);
        lf = wideUnits(QStringLiteral("\n"), layout);
        rs = wideUnits(QStringLiteral("\x1e"), layout);
        quote = wideUnits(QStringLiteral("\""), layout);
    }
    // The caller may pass the same vector twice, so the doubled quote is built only when the quote is settled.
    auto twice = quote;
    twice.insert(twice.end(), quote.begin(), quote.end());
    doubledQuote = std::move(twice);
}

int AbstractDataContainer::computeBomOffset(std::string_view buffer, EncodingType type) {
    auto const mark = Utilities::getEncodingBom(type);
    std::string_view const markView(mark.data(), mark.size());
    return buffer.starts_with(markView) ? static_cast<int>(mark.size()) : 0;
}

int AbstractDataContainer::computeTableBomOffset(std::string_view buffer, bool record) {
    auto type = encoding;
    if (hasUnknownOrder(encoding)) {
        auto const forms = orderedForms(encoding);
        type = computeBomOffset(buffer, forms.big) > computeBomOffset(buffer, forms.little) ? forms.big : forms.little;
        record = true;
    }
    auto const offset = computeBomOffset(buffer, type);
    if (offset > 0 && record) {
        hasBom = true;
        bom = Utilities::getEncodingBom(type);
    }
    return offset;
}

bool AbstractDataContainer::isBomConsistentWithEncoding(Bytes const& mark, EncodingType type) {
    if (!hasUnknownOrder(type))
        return isMarkOf(mark, type);
    auto const forms = orderedForms(type);
    return isMarkOf(mark, type) || isMarkOf(mark, forms.little) || isMarkOf(mark, forms.big);
}

QString AbstractDataContainer::formatSaveErrorReason(QString reason, QString const& fallback) const {
    if (reason.isEmpty() || reason == QLatin1String("Unknown error"))
        reason = fallback;
    if (!filepath.isEmpty())
        removePath(reason, filepath);
    auto const nativePath = QDir::toNativeSeparators(filepath);
    if (!nativePath.isEmpty() && nativePath != filepath)
        removePath(reason, nativePath);
    reason = reason.simplified();
    for (auto const* mark : {",", ".", ":", ";"})
        reason.replace(QLatin1Char(' ') + QLatin1String(mark), QLatin1String(mark));
    if (reason.isEmpty())
        reason = fallback.simplified();
    while (reason.endsWith(QLatin1Char('.')) || reason.endsWith(QLatin1Char('!')) || reason.endsWith(QLatin1Char('?')))
        reason.chop(1);
    reason = reason.trimmed();
    return reason.isEmpty() ? reason : reason + QLatin1Char('.');
}

SaveReport AbstractDataContainer::save(SaveRequest const& request, SavedPart const& part) {
    auto const oldPath = filepath;
    if (!request.path.isEmpty())
        filepath = request.path;
    auto const report = saveToPath(request, part);
    bool const isOwnFile = report.isSaved() && (!request.isCopy || QFileInfo(filepath) == QFileInfo(oldPath));
    if (!report.isSaved() || request.isCopy)
        filepath = oldPath;
    if (isOwnFile) {
        fileStamp = report.stamp;
        loadResult = {};
    }
    lastSaveError = report.reason;
    notKept = report.notKept;
    return report;
}

bool AbstractDataContainer::saveCSV(bool ignoreMaps, bool transposed, Mask const& rowMask, Mask const& colMask) {
    return saveCSV({}, ignoreMaps, transposed, rowMask, colMask);
}

bool AbstractDataContainer::saveCSV(QString const& path, bool ignoreMaps, bool transposed, Mask const& rowMask,
                                    Mask const& colMask) {
    return save(SaveRequest::unchecked(path, {}, false, ignoreMaps), {transposed, rowMask, colMask}).isSaved();
}

bool AbstractDataContainer::saveCSV(QString const& path, ExtensionData const& dialect, bool transposed,
                                    Mask const& rowMask, Mask const& colMask) {
    return save(SaveRequest::unchecked(path, dialect), {transposed, rowMask, colMask}).isSaved();
}

// The writer's sentences name file and folder, which stay.
SaveReport AbstractDataContainer::failedSave(AtomicFileWriter const& file, QString const& fallback) const {
    SaveReport report;
    if (file.outcome() == AtomicFileWriter::Outcome::TargetChanged)
        report.outcome = SaveReport::Outcome::TargetChanged;
    report.reason = file.errorString().isEmpty() ? formatSaveErrorReason({}, fallback) : file.errorString();
    report.notKept = file.notKept();
    return report;
}

SaveReport AbstractDataContainer::replaceFile(AtomicFileWriter::Options const& options,
                                              std::function<bool(AtomicFileWriter&)> const& writeLines) {
    SaveReport failed;
    try {
        if (!filepath.isEmpty())
            return replaceFileUnlessFull(options, writeLines);
        failed.reason = QStringLiteral("No file path was specified.");
    } catch (std::bad_alloc const&) {
        failed.reason = QStringLiteral("There is not enough memory to save the file.");
    }
    return failed;
}

SaveReport AbstractDataContainer::replaceFileUnlessFull(AtomicFileWriter::Options const& options,
                                                        std::function<bool(AtomicFileWriter&)> const& writeLines) {
    AtomicFileWriter file(filepath, options);
    if (!file.open())
        return failedSave(file, QStringLiteral("The file could not be opened for writing."));
    bool const writesMark = hasBom && !bom.empty() && isBomConsistentWithEncoding(bom, encoding);
    if ((writesMark && !file.write({bom.data(), bom.size()})) || !writeLines(file))
        return failedSave(file, QStringLiteral("The file could not be written completely."));
    if (!file.commit())
        return failedSave(file, QStringLiteral("The temporary save file could not replace the original file."));
    return {SaveReport::Outcome::Saved, {}, file.notKept(), file.stamp(), {}};
}

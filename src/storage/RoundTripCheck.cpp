#include "storage/RoundTripCheck.h"

#include "storage/Iso2022Jp.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t heldBytes = 1 << 18;
constexpr std::size_t writerBuffer = 1 << 12;

/// A character that means nothing in the dialect.
std::string sentinelOf(LineDialect const& dialect) {
    std::string result;
    for (char const character : {'x', 'y', 'z'}) {
        result = dialect.quote;
        std::replace(result.begin(), result.end(), '"', character);
        if (dialect.delimiter.find(character) == std::string::npos)
            break;
    }
    return result;
}

} // namespace

RoundTripCheck::RoundTripCheck(LineDialect const& dialect, Reading readingOfFile, FileStart startOfFile)
    : reading(std::move(readingOfFile)), start(std::move(startOfFile)), sentinel(sentinelOf(dialect)),
      delimiterBytes(dialect.delimiter.size()), shifts(dialect.shifts), writer(
                                                                            dialect,
                                                                            [this](std::string_view more) {
                                                                                text += more;
                                                                                return true;
                                                                            },
                                                                            writerBuffer) {}

// What is held can be looked at only now: before, its last line might have been the last of the file.
void RoundTripCheck::beginLine(int number, int row, int col) {
    if (text.size() + bytes.size() >= heldBytes)
        checkHeld(lines.size());
    lines.push_back({number, {row, col}, text.size(), cells.size()});
}

void RoundTripCheck::cell(int row, int col, std::string_view cellBytesOfTable) {
    bool const isFirst = lines.back().firstCell == cells.size();
    std::size_t const begin = text.size() + (isFirst ? 0 : delimiterBytes);
    writer.cell(cellBytesOfTable);
    writer.flush();
    bytes += cellBytesOfTable;
    if (shifts)
        bytes += Iso2022Jp::closing(cellBytesOfTable);
    cells.push_back({{row, col}, begin, bytes.size()});
}

void RoundTripCheck::endLine() {
    writer.endLine();
    writer.flush();
}

void RoundTripCheck::finish(int linesOfFile) {
    bool const lastIsHeld = !lines.empty() && lines.back().number + 1 == linesOfFile;
    if (lastIsHeld && !isFull())
        checkLine(lines.size() - 1, true);
    checkHeld(lines.size() - (lastIsHeld ? 1 : 0));
}

ChangedCells RoundTripCheck::changes() const {
    return {CellRegion::ofCells(changed), goesOn, moves};
}

std::size_t RoundTripCheck::cellsEnd(std::size_t line) const {
    return line + 1 < lines.size() ? lines[line + 1].firstCell : cells.size();
}

std::size_t RoundTripCheck::textEnd(std::size_t line) const {
    return line + 1 < lines.size() ? lines[line + 1].begin : text.size();
}

std::string_view RoundTripCheck::cellBytes(std::size_t index) const {
    std::size_t const begin = index > 0 ? cells[index - 1].end : 0;
    return std::string_view(bytes).substr(begin, cells[index].end - begin);
}

/// Reads a stretch of the text as the file's start, as its end, or from within it.
void RoundTripCheck::load(Loaded& loaded, std::size_t from, std::size_t to, bool startsFile, bool endsFile) const {
    std::string file = startsFile ? start.mark : std::string();
    file.append(text, from, to - from);
    if (!endsFile)
        file += sentinel;
    std::size_t read = 0;
    ScannerJob job;
    job.bytes = file.size();
    job.read = [&](char* target, std::size_t most) {
        std::size_t const count = std::min(most, file.size() - read);
        std::memcpy(target, file.data() + read, count);
        read += count;
        return count;
    };
    job.markLength = [&](std::string_view begin) { return startsFile ? start.markLength(begin) : 0; };
    loaded.columns = reading.scan(loaded.rows, job, reading.dialect).columns;
}

/// Whether a loaded row has these cells and no others behind them but those that stand in `more`.
bool RoundTripCheck::isRow(Loaded const& loaded, std::size_t row, std::size_t first, std::size_t end,
                           std::string_view more) const {
    std::size_t const count = end - first;
    if (loaded.rows.cellCount(row) > count + (more.empty() ? 0 : 1) || loaded.rows.cell(row, count) != more)
        return false;
    for (std::size_t i = first; i < end; ++i)
        if (loaded.rows.cell(row, i - first) != cellBytes(i))
            return false;
    return true;
}

/// Whether the first lines that are held come back, none of which is the file's last.
bool RoundTripCheck::linesComeBack(std::size_t count) const {
    Loaded loaded;
    load(loaded, lines.front().begin, textEnd(count - 1), lines.front().number == 0, false);
    bool same = loaded.rows.size() == count + 1 && isRow(loaded, count, 0, 0, sentinel);
    for (std::size_t i = 0; i < count && same; ++i)
        same = isRow(loaded, i, lines[i].firstCell, cellsEnd(i));
    return same;
}

void RoundTripCheck::checkHeld(std::size_t count) {
    if (count > 0 && !isFull() && !linesComeBack(count))
        for (std::size_t i = 0; i < count && !isFull(); ++i)
            checkLine(i, false);
    goesOn = goesOn || isFull();
    text.clear();
    bytes.clear();
    lines.clear();
    cells.clear();
}

/// Whether some cells of a line that follow one another come back if the line begins with the first of them.
RoundTripCheck::Return RoundTripCheck::returnOf(std::size_t line, std::size_t first, std::size_t end,
                                                bool endsFile) const {
    bool const startsLine = first == lines[line].firstCell, endsLine = end == cellsEnd(line);
    std::size_t const from = startsLine ? lines[line].begin : cells[first].begin;
    std::size_t const to = endsLine ? textEnd(line) : cells[end].begin;
    Loaded loaded;
    load(loaded, from, to, startsLine && lines[line].number == 0, endsLine && endsFile);
    if (!endsLine)
        return {loaded.rows.size() == 1 && isRow(loaded, 0, first, end, sentinel), true};
    bool const inPlace = loaded.rows.size() == (endsFile ? 1 : 2) && (endsFile || isRow(loaded, 1, 0, 0, sentinel));
    return {inPlace && isRow(loaded, 0, first, end),
            inPlace && loaded.columns == std::max<std::size_t>(end - first, 1)};
}

// Without delimiters all that the cells of a line hold runs together.
bool RoundTripCheck::comeBack(std::size_t line, std::size_t first, std::size_t end, bool endsFile) const {
    if (delimiterBytes > 0)
        return returnOf(line, first, end, endsFile).same;
    return cells[end - 1].end == (first > 0 ? cells[first - 1].end : 0);
}

/// Finds the cells for whose sake a line does not come back. A cell that comes back leaves the scanner at the start of
/// the next one, so each can be looked at as if it were the line's first; many are at once as long as they come back.
void RoundTripCheck::checkLine(std::size_t line, bool endsFile) {
    std::size_t first = lines[line].firstCell;
    std::size_t const end = cellsEnd(line);
    auto const whole = returnOf(line, first, end, endsFile);
    if (whole.same)
        return;
    moves = moves || !whole.inPlace;
    auto const before = changed.size();
    for (std::size_t atOnce = 1; first < end && !isFull();) {
        std::size_t const next = std::min(first + atOnce, end);
        if (comeBack(line, first, next, endsFile)) {
            first = next;
            atOnce *= 2;
        } else if (next - first > 1) {
            atOnce = 1;
        } else {
            changed.push_back(cells[first].place);
            ++first;
        }
    }
    if (changed.size() == before)
        changed.push_back(lines[line].place);
}

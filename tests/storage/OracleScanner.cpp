#include "tests/storage/OracleScanner.h"

#include <algorithm>

namespace {

using Unit = std::string;

/// The text with each doubled quote as one.
std::string collapsed(std::string const& text, std::string const& quote) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); i += quote.size()) {
        result += text.substr(i, quote.size());
        if (text.compare(i, 2 * quote.size(), quote + quote) == 0)
            i += quote.size();
    }
    return result;
}

/// The machine that looks behind: a unit goes to the cell only when the one after it has been seen.
class LookBehindMachine {
public:
    /// `lineEnds` end rows; `crFollower` counts as one row end with a CR before it.
    LookBehindMachine(ScannerDialect const& scannerDialect, bool withDelimiter, bool withQuotes,
                      std::vector<Unit> const& rowEnds, Unit const& follower)
        : dialect(scannerDialect), hasDelimiter(withDelimiter), hasQuotes(withQuotes), lineEnds(rowEnds),
          crFollower(follower) {}

    void feed(Unit const& c) {
        bool consumed = false;
        while (!consumed)
            consumed = step(c);
    }

    OracleTable finish() {
        if (!isDelimiter(prev) && !isLineEnd(prev))
            cell += prev;
        if (state == QuoteInQuoted || state == QuotedCellEnd)
            strip();
        if (row >= 0)
            table.setValue(row, col, cell);
        return table;
    }

private:
    enum State { RowStart, CellStart, Unquoted, Quoted, QuoteInQuoted, CellEnd, QuotedCellEnd };

    bool isDelimiter(Unit const& c) const { return hasDelimiter && c == dialect.delimiter; }
    bool isLineEnd(Unit const& c) const { return std::find(lineEnds.begin(), lineEnds.end(), c) != lineEnds.end(); }
    bool isSeparator(Unit const& c) const { return isDelimiter(c) || isLineEnd(c); }

    bool consume(State next, Unit const& c) {
        prev = c;
        state = next;
        return true;
    }

    /// Handles `c` in the present state; returns whether it is consumed.
    bool step(Unit const& c) {
        switch (state) {
        case RowStart:
            ++row;
            col = -1;
            state = CellStart;
            return false;
        case CellStart:
            ++col;
            cell.clear();
            if (isSeparator(c))
                return consume(CellEnd, c);
            return consume(hasQuotes && c == dialect.quote ? Quoted : Unquoted, c);
        case Unquoted: cell += prev; return consume(isSeparator(c) ? CellEnd : Unquoted, c);
        case Quoted: cell += prev; return consume(c == dialect.quote ? QuoteInQuoted : Quoted, c);
        case QuoteInQuoted:
            cell += prev;
            if (isSeparator(c))
                return consume(QuotedCellEnd, c);
            return consume(c == dialect.quote ? Quoted : Unquoted, c);
        case QuotedCellEnd: strip(); [[fallthrough]];
        case CellEnd: break;
        }
        return endCell(c);
    }

    bool endCell(Unit const& c) {
        table.setValue(row, col, cell);
        if (isDelimiter(prev)) {
            prev = c;
            state = CellStart;
            return false;
        }
        bool const pair = prev == dialect.cr && c == crFollower;
        prev = c;
        state = RowStart;
        return pair;
    }

    void strip() {
        cell = cell.substr(dialect.quote.size(), cell.size() - 2 * dialect.quote.size());
        cell = collapsed(cell, dialect.quote);
    }

    ScannerDialect const dialect;
    bool const hasDelimiter;
    bool const hasQuotes;
    std::vector<Unit> const lineEnds;
    Unit const crFollower;
    OracleTable table;
    State state = RowStart;
    int row = -1;
    int col = -1;
    std::string cell;
    Unit prev = std::string(static_cast<std::size_t>(dialect.unitBytes), '0');
};

/// The machine of tokens.
class TokenMachine {
public:
    explicit TokenMachine(ScannerDialect const& scannerDialect) : dialect(scannerDialect) {}

    OracleTable scan(std::string const& file, std::size_t position) {
        while (position < file.size()) {
            std::string token = file.substr(position, 1);
            if (file.compare(position, dialect.delimiter.size(), dialect.delimiter) == 0)
                token = dialect.delimiter;
            else if (file.compare(position, 2, "\r\n") == 0)
                token = "\r\n";
            take(token);
            position += token.size();
        }
        if (!rowJustEnded || !storedAny) {
            if (state == QuoteInQuoted)
                strip();
            store();
        }
        return table;
    }

private:
    enum State { CellStart, Unquoted, Quoted, QuoteInQuoted };

    void take(std::string const& token) {
        bool const isDelimiter = token == dialect.delimiter;
        bool const isLineEnd = !isDelimiter && (token == "\r" || token == "\n" || token == "\r\n" || token == "\x1e");
        bool const isQuote = !isDelimiter && token == "\"";
        if (state != Quoted && (isDelimiter || isLineEnd)) {
            if (state == QuoteInQuoted)
                strip();
            store();
            cell.clear();
            col = isDelimiter ? col + 1 : 0;
            row += isLineEnd;
            rowJustEnded = isLineEnd;
            state = CellStart;
            return;
        }
        cell += token;
        rowJustEnded = false;
        if (state == CellStart)
            state = isQuote && dialect.quotes ? Quoted : Unquoted;
        else if (state == Quoted)
            state = isQuote ? QuoteInQuoted : Quoted;
        else if (state == QuoteInQuoted)
            state = isQuote ? Quoted : Unquoted;
    }

    void strip() {
        if (cell.size() > 1)
            cell = collapsed(cell.substr(1, cell.size() - 2), "\"");
    }

    void store() {
        table.setValue(row, col, cell);
        storedAny = true;
    }

    ScannerDialect const dialect;
    OracleTable table;
    State state = CellStart;
    int row = 0;
    int col = 0;
    std::string cell;
    bool rowJustEnded = false;
    bool storedAny = false;
};

} // namespace

void OracleTable::setValue(int row, int col, std::string const& value) {
    auto const wantedRow = static_cast<std::size_t>(row);
    auto const wantedCol = static_cast<std::size_t>(col);
    if (wantedRow >= rows.size()) {
        rows.resize(wantedRow + 1);
        numRows = row + 1;
    }
    numCols = std::max(numCols, col + 1);
    if (wantedCol >= rows[wantedRow].size()) {
        if (value.empty())
            return;
        rows[wantedRow].resize(wantedCol + 1);
    }
    rows[wantedRow][wantedCol] = value;
}

OracleTable oracleScan(OracleKind kind, std::string const& file, std::size_t mark, ScannerDialect const& dialect) {
    ScannerDialect const& d = dialect;
    if (kind == OracleKind::ByteSequence)
        return TokenMachine(d).scan(file, mark);
    auto const machine = [&]() -> LookBehindMachine {
        switch (kind) {
        case OracleKind::OneByte: return {d, true, d.quotes, {d.cr, d.lf, d.rs}, d.lf};
        case OracleKind::NoDelimiter: return {d, false, false, {d.cr, d.lf, d.rs}, d.lf};
        case OracleKind::MultiByte: return {d, true, d.quotes, {d.cr, d.lf}, d.lf};
        default: return {d, false, false, {d.cr, d.rs}, d.rs};
        }
    };
    LookBehindMachine reader = machine();
    auto const width = static_cast<std::size_t>(d.unitBytes);
    for (std::size_t position = mark; position + width <= file.size(); position += width)
        reader.feed(file.substr(position, width));
    return reader.finish();
}

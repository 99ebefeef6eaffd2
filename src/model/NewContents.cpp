#include "model/NewContents.h"

#include "model/TableModel.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// Texts for cells in the order in which they are written.
class Writes {
public:
    explicit Writes(TableModel const& model) : model(model), data(model.getTableData()) {}

    void add(Range const& range) {
        switch (range.type) {
        case RangeType::Cell: put(range.row, range.col, range.value()); break;
        case RangeType::Row:
        case RangeType::Column: addLine(range); break;
        case RangeType::Table: addTable(range); break;
        case RangeType::None: break;
        }
    }

    CellPatch patch() {
        auto const place = [](Write const& write) { return std::pair(write.row, write.col); };
        std::stable_sort(writes.begin(), writes.end(),
                         [&](Write const& a, Write const& b) { return place(a) < place(b); });
        CellPatch result;
        for (std::size_t i = 0; i < writes.size(); ++i) {
            if (i + 1 < writes.size() && place(writes[i]) == place(writes[i + 1]))
                continue;
            Write const& write = writes[i];
            std::string_view const text = std::string_view(bytes).substr(write.begin, write.end - write.begin);
            if (write.loses || text != data.cellBytesRaw(write.row, write.col))
                result.add(write.row, write.col, text, write.loses);
        }
        return result;
    }

private:
    struct Write {
        int row; ///< Raw
        int col;
        std::size_t begin; ///< of the text in `bytes`
        std::size_t end;
        bool loses; ///< characters that the encoding lacks
    };

    void put(int row, int col, QVariant const& value) {
        int const rawRow = data.getRawFromModelRow(row);
        int const rawCol = data.getRawFromModelCol(col);
        if (rawRow < 0 || rawCol < 0)
            return;
        std::size_t const begin = bytes.size();
        bool loses = false;
        auto const text = data.getCodec().encode(value.toString(), &loses);
        bytes.append(text.data(), text.size());
        writes.push_back({rawRow, rawCol, begin, bytes.size(), loses});
    }

    void addLine(Range const& range) {
        bool const isRow = range.type == RangeType::Row;
        std::vector<int> excluded = isRow ? range.excludedCols() : range.excludedRows();
        std::sort(excluded.begin(), excluded.end());
        int position = isRow ? range.col : range.row;
        auto const putHere = [&](QVariant const& value) {
            isRow ? put(range.row, position, value) : put(position, range.col, value);
        };
        for (QVariant const& value : range.lineValues()) {
            if (!std::binary_search(excluded.begin(), excluded.end(), position))
                putHere(value);
            ++position;
        }
        for (int const end = isRow ? model.columnCount() : model.rowCount(); position < end; ++position)
            putHere(range.value());
    }

    void addTable(Range const& range) {
        int const gridRows = model.rowCount();
        int const endRow = std::max(gridRows, range.row + int(range.tableValues().size()));
        for (int row = range.row; row < endRow; ++row) {
            int col = range.col;
            if (auto const offset = std::size_t(row - range.row); offset < range.tableValues().size()) {
                for (QVariant const& value : range.tableValues()[offset])
                    put(row, col++, value);
            }
            for (; col < model.columnCount() && row < gridRows; ++col)
                put(row, col, range.value());
        }
    }

    TableModel const& model;
    TableData const& data;
    std::string bytes;
    std::vector<Write> writes;
};

} // namespace

CellPatch newContents(TableModel const& model, RangeVector const& ranges) {
    Writes writes(model);
    for (Range const& range : ranges)
        writes.add(range);
    return writes.patch();
}

#include "model/HeaderRowSearch.h"

#include <algorithm>

HeaderRowMatch findHeaderRow(std::vector<QString> const& names, int required, int rows, int cols,
                             std::function<QString(int row, int col)> const& cell) {
    std::vector<int> const none(names.size(), -1);
    auto const wanted = required == -1 ? std::ptrdiff_t(names.size()) : std::ptrdiff_t(required);
    for (int row = 0; row < rows; ++row) {
        std::vector<int> columns = none;
        for (int col = 0; col < cols; ++col) {
            QString const text = cell(row, col);
            for (std::size_t i = 0; i < names.size(); ++i) {
                if (columns[i] == -1 && names[i] == text)
                    columns[i] = col;
            }
        }
        auto const found = std::count_if(columns.begin(), columns.end(), [](int col) { return col != -1; });
        if (found >= wanted)
            return {row, std::move(columns)};
    }
    return {-1, none};
}

#include "view/ColumnSample.h"

#include <algorithm>

bool ColumnSample::add(QString const& text) {
    if (maximumWidth >= 0 && qint64(averageCharWidth) * text.size() > maximumWidth)
        return false;
    bool const full = longest.size() == most;
    if (text.isEmpty() || (full && text.size() <= longest.back().size()))
        return true;
    auto const longer = [](QString const& a, QString const& b) { return a.size() > b.size(); };
    // The same word many times over says no more than once.
    if (std::find(longest.begin(), longest.end(), text) != longest.end())
        return true;
    longest.insert(std::upper_bound(longest.begin(), longest.end(), text, longer), text);
    if (longest.size() > most)
        longest.pop_back();
    return true;
}

#include "view/LineSizes.h"

#include "model/LineMove.h"

#include <QHeaderView>

#include <algorithm>

LineSizes::LineSizes(QHeaderView& header, QObject* parent) : QObject(parent), header(header) {
    connect(&header, &QHeaderView::sectionResized, this, [this](int, int, int size) {
        if (size != this->header.defaultSectionSize())
            resized = true;
    });
}

bool LineSizes::areDefault() const {
    if (!resized)
        return true;
    for (int line = 0; line < header.count(); ++line) {
        if (header.sectionSize(line) != header.defaultSectionSize())
            return false;
    }
    resized = false;
    return true;
}

// A table of a million rows would send as many signals.
void LineSizes::setDefault(int size) {
    bool const wasBlocked = header.blockSignals(true);
    header.setDefaultSectionSize(size);
    header.blockSignals(wasBlocked);
    resized = false;
}

template <typename Change>
void LineSizes::changeAll(Change change) {
    if (areDefault() && change(header.defaultSectionSize()) == header.defaultSectionSize())
        return;
    for (int line = 0; line < header.count(); ++line) {
        int const size = header.sectionSize(line);
        if (change(size) != size)
            header.resizeSection(line, change(size));
    }
}

void LineSizes::raiseAll(int least) {
    changeAll([least](int size) { return std::max(size, least); });
}

void LineSizes::cutAll(int most) {
    changeAll([most](int size) { return std::min(size, most); });
}

void LineSizes::raise(int line, int least) {
    if (header.sectionSize(line) < least)
        header.resizeSection(line, least);
}

void LineSizes::cut(int line, int most) {
    if (header.sectionSize(line) > most)
        header.resizeSection(line, most);
}

void LineSizes::makeRoom(std::vector<int> const& newLines) {
    if (areDefault())
        return;
    int end = header.count();
    for (std::size_t inserted = newLines.size(); inserted > 0; --inserted) {
        int const newLine = newLines[inserted - 1];
        for (int line = end - 1; line > newLine; --line)
            header.resizeSection(line, header.sectionSize(line - int(inserted)));
        end = newLine;
    }
}

void LineSizes::move(LineMove const& move) {
    bool const givesBack = move.sizes != nullptr && !move.sizes->empty();
    if (areDefault() && !givesBack)
        return;
    int const fallback = header.defaultSectionSize();
    std::vector<int> sizes(std::size_t(header.count()), fallback);
    std::vector<std::pair<int, int>> gone;
    for (int line = 0; line < header.count(); ++line) {
        int const size = header.sectionSize(line);
        int const to = move.newLine(line);
        if (to < 0 && size != fallback)
            gone.emplace_back(line, size);
        else if (to >= 0 && to < header.count())
            sizes[std::size_t(to)] = size;
    }
    if (givesBack) {
        for (auto const& [line, size] : *move.sizes)
            if (line < header.count())
                sizes[std::size_t(line)] = size;
    }
    if (move.sizes != nullptr)
        *move.sizes = gone;
    for (int line = 0; line < header.count(); ++line)
        header.resizeSection(line, sizes[std::size_t(line)]);
}

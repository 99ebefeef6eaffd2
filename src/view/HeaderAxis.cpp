#include "view/HeaderAxis.h"

#include <QHeaderView>
#include <QScrollBar>

HeaderAxis::HeaderAxis(QHeaderView const& header, QScrollBar const& bar, int extent, Frozen frozen)
    : header(header), bar(bar), viewportExtent(extent), frozen(frozen) {}

int HeaderAxis::count() const {
    return header.count();
}

qint64 HeaderAxis::position(int section) const {
    return section < header.count() ? header.sectionPosition(section) : header.length();
}

int HeaderAxis::size(int section) const {
    return header.sectionSize(section);
}

int HeaderAxis::sectionAt(int pixel) const {
    return header.logicalIndexAt(pixel);
}

int HeaderAxis::value() const {
    return bar.sliderPosition();
}

int HeaderAxis::maximum() const {
    return bar.maximum();
}

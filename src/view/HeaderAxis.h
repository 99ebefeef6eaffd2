#pragma once

#include "view/ScrollAxis.h"

class QHeaderView;
class QScrollBar;

/// The axis of a table view that a header lays out. Made for one calculation; refers to the header and the bar.
class HeaderAxis : public ScrollAxis {
public:
    /// The band of frozen sections; an extent of 0 says that it is not shown.
    struct Frozen {
        int extent = 0;
        int count = 0;
    };

    HeaderAxis(QHeaderView const& header, QScrollBar const& bar, int extent, Frozen frozen);

    int count() const override;
    qint64 position(int section) const override;
    int size(int section) const override;
    int sectionAt(int pixel) const override;
    int extent() const override { return viewportExtent; }
    int frozenExtent() const override { return frozen.extent; }
    int frozenCount() const override { return frozen.count; }
    int value() const override;
    int maximum() const override;

private:
    QHeaderView const& header;
    QScrollBar const& bar;
    int viewportExtent;
    Frozen frozen;
};

#pragma once

#include <QtGlobal>

/// One axis of a scrolled view, as far as scrolling needs it: its sections (rows or columns), its viewport and its
/// scroll bar. All lengths are pixels. No answer may cost more the more sections there are.
class ScrollAxis {
public:
    virtual ~ScrollAxis() = default;

    virtual int count() const = 0;
    /// Where a section begins, from the start of the first; behind the last section the length of all.
    virtual qint64 position(int section) const = 0;
    /// 0 for a section that is not there.
    virtual int size(int section) const = 0;
    /// The section at a distance from the viewport's edge, which may lie outside the viewport; -1 for none.
    virtual int sectionAt(int pixel) const = 0;
    /// Of the viewport.
    virtual int extent() const = 0;
    /// Of the band of frozen sections that covers the viewport's start, 0 while none is shown.
    virtual int frozenExtent() const = 0;
    /// The number of sections in that band.
    virtual int frozenCount() const = 0;
    /// Of the scroll bar.
    virtual int value() const = 0;
    virtual int maximum() const = 0;
};

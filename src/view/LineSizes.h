#pragma once

#include "core/Enumerations.h"

#include <QObject>

#include <limits>
#include <vector>

class LineSizeStore;
class QHeaderView;
class TableModel;

/// The heights of the rows or the widths of the columns of a table as its views show them. The sizes are kept in the
/// table, by line (see LineSizeStore); the headers of the view and of its bands take them from there, and a size that a
/// header gets from anybody else is one that the user has given. Where all sizes together are more pixels than Qt can
/// count, large ones are shown smaller; the table keeps them. Lines are Model.
class LineSizes : public QObject {
    Q_OBJECT

public:
    /// The header is that of the view. Axis::Rows or Axis::Columns.
    LineSizes(Axis axis, QHeaderView& header, QObject* parent);

    /// Whose lines these are. Not owned. To be told again when a header has been given this model: headers have to hear
    /// of changes first.
    void setTable(TableModel* model);
    /// A header that shows all lines, or the first ones, a second time.
    void addBand(QHeaderView& header);

    QHeaderView& header() const { return *shown.front().header; }
    int size(int line) const;
    /// Of lines without a size of their own.
    int defaultSize() const;
    /// Whether all lines have the default size. Looks at none.
    bool areDefault() const;
    /// From this line on all have the default size.
    int end() const;

    /// Gives all lines the default size.
    void forgetAll();
    /// Gives that size to lines without one of their own, also to those that are inserted later. Where the data have
    /// more lines of it than a grid has pixels for, they get less while that is so.
    void changeDefault(int size);
    void setByHand(int line, int size);
    bool isByHand(int line) const;
    /// A size by the contents.
    void fit(int line, int size);
    /// Fits a smaller line to that size.
    void widen(int line, int size);
    void reset(int line);
    /// Lines behind the data get the default size.
    void resetBehindData();
    /// A line that is smaller than it may be gets the default size: one that the user has sized than `leastByHand`,
    /// another one than the default.
    void keepAbove(int line, int leastByHand);
    void keepAllAbove(int leastByHand);
    /// A line larger than `most` gets it.
    void cut(int line, int most);
    void cutAll(int most);

    /// Shows a line in a size that is not its own, until it is given one.
    void pretend(int line, int size);
    /// Has the headers show what the table says, if its lines or their sizes have changed since they last did. True if
    /// any section has another size now; the views are then to be laid out anew.
    bool show();

signals:
    /// The user has given a visible line another size.
    void resizedByHand(int line);

private:
    static constexpr int nothing = std::numeric_limits<int>::max();

    struct Shown {
        QHeaderView* header;
        bool uniform = true;       ///< no section has another size than the default
        int pendingFrom = nothing; ///< sections from here on may be out of date
    };

    LineSizeStore& store() const;
    int rawLine(int line) const;
    int boundDefault() const;
    void giveDefault();
    void add(QHeaderView& header);
    int mostShown() const;
    int ownSize(int line) const;
    void showAt(int line, int size);
    bool showPending(Shown& each);
    bool resizeSections(Shown& each, int from);
    void resizeFew(Shown& each);
    void outdate();
    void onResized(std::size_t at, int line, int size);

    Axis axis;
    TableModel* table = nullptr;
    std::vector<Shown> shown; ///< the view's own first
    bool showing = false;     ///< a header is being told a size
    bool layoutChanging = false;
    int wantedDefault = 0; ///< none yet
    int givenDefault = 0;  ///< what the headers were last told; they have bounds of their own
    int givenMost = nothing;
    quint64 shownRevision = 0;
};

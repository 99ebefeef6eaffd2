#pragma once

#include <QObject>

#include <vector>

struct LineMove;
class QHeaderView;

/// The heights of the rows or the widths of the columns of a table, as its header keeps them. Knows without looking
/// when all of them are the default, which is so for the rows of nearly every table. Belongs to the header's view.
class LineSizes : public QObject {
public:
    LineSizes(QHeaderView& header, QObject* parent);

    /// Whether all lines have the default size. Looks at them only if one has been resized since it was last asked.
    bool areDefault() const;
    /// Gives all lines that size, and those that are inserted later.
    void setDefault(int size);
    /// Lines smaller than `least` get it.
    void raiseAll(int least);
    /// Lines larger than `most` get it.
    void cutAll(int most);
    void raise(int line, int least);
    void cut(int line, int most);
    /// Moves sizes towards the end, so that lines can be inserted. `newLines` says ascending where each single new line
    /// will stand; their own sizes stay as they are.
    void makeRoom(std::vector<int> const& newLines);

    /// Lets sizes go where their lines have gone; lines that come from nowhere get the default.
    void move(LineMove const& move);

private:
    template <typename Change>
    void changeAll(Change change);

    QHeaderView& header;
    mutable bool resized = false; ///< a line may have another size than the default
};

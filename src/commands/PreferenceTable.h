#pragma once

#include "commands/PreferenceFiles.h"

#include <QString>
#include <QStringList>

#include <vector>

class TableModel;

/// The rows below the row of titles of a preference table. Titles may stand in any order, and instructions above them.
/// The model must outlive this object.
class PreferenceTable {
public:
    /// Looks for a row with at least `required` of the titles (-1: all).
    PreferenceTable(TableModel const& model, std::vector<QString> const& titles, int required = -1);

    bool hasTitles() const { return titleRow >= 0; }
    /// The first row below the titles and the row behind the last one; the same without titles.
    int firstRow() const;
    int endRow() const;
    /// The text in a row under a title, by the title's place in the list; empty if the table lacks the title.
    QString text(int row, std::size_t title) const;
    /// The column of a title, -1 if the table lacks it.
    int column(std::size_t title) const { return columns[title]; }

private:
    TableModel const& model;
    int titleRow = -1;
    std::vector<int> columns;
};

namespace PreferenceFiles {

/// Whether the file can be read as preferences: a regular file of at most 64 MiB that the user may read. Reading never
/// blocks.
bool isReadable(QString const& path);

/// Reads a preference file into a model without a view. False, with an empty model, for one that is not readable.
bool load(TableModel& model, QString const& path);

/// Writes a bare model as a preference file, by replacing it as a whole. Fails, and leaves the file as it is, if the
/// model was read from that file and it is another one by now.
bool save(TableModel& model, QString const& path);
/// Whether the system says that there is nothing at the path, not even a link; not if it fails to say.
bool isMissing(QString const& path);

/// Whether the file has a row with at least `required` of the titles (-1: all).
FileTest examine(QString const& path, std::vector<QString> const& titles, int required = -1);

/// Puts texts into a row of a bare model, from the given column on; empty ones are left out.
void writeRow(TableModel& model, int row, int col, QStringList const& texts);
/// As writeRow, downwards.
void writeColumn(TableModel& model, int row, int col, QStringList const& texts);
/// The bare model gets a table of empty cells.
void setSize(TableModel& model, int rows, int cols);

} // namespace PreferenceFiles

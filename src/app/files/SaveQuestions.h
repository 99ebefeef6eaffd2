#pragma once

#include "core/ExtensionData.h"
#include "model/FileDialect.h"
#include "storage/ChangedCells.h"

#include <QString>

class QWidget;
class TableModel;
class Theme;

/// The boxes in which the user is asked about a save. Each runs an event loop, after which tables may be gone.
namespace SaveQuestions {

struct Asker {
    QWidget* parent;
    Theme const& theme;
};

/// About a table that has only the beginning of its file: `bytes` of it.
enum class PartAnswer { SaveAs, SaveAnyway, Cancel };
PartAnswer aboutPartOfFile(Asker const& asker, QString const& path, qint64 bytes);

/// About the file of a table, in which a save as `dialect` would change something. What cannot be kept is not offered.
struct DialectAnswer {
    enum Choice { KeepAsInFile, SaveAsSet, Cancel } choice = Cancel;
    bool forAllOfExtension = false;
};
DialectAnswer aboutFileDialect(Asker const& asker, TableModel const& model, ExtensionData const& dialect,
                               SaveDialect::Change const& change);

/// About a file with several names.
enum class LinksAnswer { Replace, WriteInPlace, Cancel };
LinksAnswer aboutHardLinks(Asker const& asker, QString const& path, int names);

/// About cells, which may be shown in place of the save.
enum class CellsAnswer { GoOn, ShowCells, Cancel };
/// About cells that a load of the saved file would not give back.
CellsAnswer aboutChangedCells(Asker const& asker, QString const& path, ChangedCells const& changed);
/// Tells of them, as one sentence.
QString sentenceAboutChangedCells(ChangedCells const& changed);

} // namespace SaveQuestions

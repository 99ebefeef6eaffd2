#include "commands/PreferenceTable.h"

#include "model/TableModel.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>

namespace {

constexpr int searchedLines = 100; // rows and columns in which the titles are looked for
constexpr qint64 largestFile = 64 << 20;

} // namespace

PreferenceTable::PreferenceTable(TableModel const& model, std::vector<QString> const& titles, int required)
    : model(model) {
    model.getHeaderRowInformation(titleRow, columns, titles, required, searchedLines, searchedLines);
    columns.resize(titles.size(), -1);
}

int PreferenceTable::firstRow() const {
    return hasTitles() ? titleRow + 1 : 0;
}

int PreferenceTable::endRow() const {
    return hasTitles() ? model.rowCountRaw() : 0;
}

QString PreferenceTable::text(int row, std::size_t title) const {
    return columns[title] < 0 ? QString() : model.dataRaw(model.index(row, columns[title])).toString();
}

bool PreferenceFiles::isReadable(QString const& path) {
    QFileInfo const info(path);
    QFile file(path);
    return info.isFile() && info.size() <= largestFile && file.open(QIODevice::ReadOnly);
}

bool PreferenceFiles::load(TableModel& model, QString const& path) {
    QString const comma = QStringLiteral(",");
    if (!isReadable(path)) {
        model.clearTable();
        return false;
    }
    model.loadCSV(path, false, false, comma, comma, EncodingType::Utf8, ParsingStandard::Rfc4180);
    return model.getLoadResult().end == LoadEnd::Whole;
}

bool PreferenceFiles::save(TableModel& model, QString const& path) {
    SaveRequest request = SaveRequest::unchecked(path);
    if (model.getFilepath() == path) {
        request.file.expected = model.getFileStamp();
    }
    return model.save(request).isSaved();
}

bool PreferenceFiles::isMissing(QString const& path) {
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) != 0 && errno == ENOENT;
}

PreferenceFiles::FileTest PreferenceFiles::examine(QString const& path, std::vector<QString> const& titles,
                                                   int required) {
    TableModel model;
    if (!load(model, path)) {
        return FileTest::Unread;
    }
    return PreferenceTable(model, titles, required).hasTitles() ? FileTest::Sound : FileTest::Damaged;
}

void PreferenceFiles::writeRow(TableModel& model, int row, int col, QStringList const& texts) {
    for (QString const& text : texts) {
        model.setDataRaw(model.index(row, col++), text);
    }
}

void PreferenceFiles::writeColumn(TableModel& model, int row, int col, QStringList const& texts) {
    for (QString const& text : texts) {
        model.setDataRaw(model.index(row++, col), text);
    }
}

void PreferenceFiles::setSize(TableModel& model, int rows, int cols) {
    model.insertRows(0, rows);
    model.insertColumns(0, cols);
}

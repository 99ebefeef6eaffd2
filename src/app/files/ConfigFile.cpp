#include "app/files/ConfigFile.h"

#include "commands/PreferenceTable.h"
#include "storage/AtomicFileWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <string_view>

namespace {

/// A copy of the file, on which QSettings may work as it likes.
class Copy {
public:
    explicit Copy(QByteArray const& bytes) {
        QFile file(path());
        made = folder.isValid() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    }
    bool isMade() const { return made; }
    QString path() const { return folder.filePath(QStringLiteral("copy.ini")); }
    QVariant value(QString const& key) const { return QSettings(path(), QSettings::IniFormat).value(key); }
    bool set(QString const& key, QVariant const& value) const {
        QSettings settings(path(), QSettings::IniFormat);
        settings.setValue(key, value);
        settings.sync();
        return settings.status() == QSettings::NoError;
    }

private:
    QTemporaryDir folder;
    bool made = false;
};

} // namespace

std::optional<QByteArray> ConfigFile::bytes() const {
    if (PreferenceFiles::isMissing(path))
        return QByteArray();
    QFile file(path);
    if (!PreferenceFiles::isReadable(path) || !file.open(QIODevice::ReadOnly))
        return {};
    QByteArray const read = file.readAll();
    bool const isWhole = file.error() == QFileDevice::NoError && read.size() == file.size();
    return isWhole ? std::optional(read) : std::nullopt;
}

std::optional<QVariant> ConfigFile::read(QString const& key) const {
    auto const present = bytes();
    if (!present)
        return {};
    Copy const copy(*present);
    return copy.isMade() ? std::optional(copy.value(key)) : std::nullopt;
}

bool ConfigFile::write(QString const& key, QVariant const& value) const {
    auto const present = bytes();
    if (!present)
        return false;
    Copy const copy(*present);
    if (!copy.isMade() || !copy.set(key, value) || copy.value(key).toString() != value.toString())
        return false;
    QFile changed(copy.path());
    if (!changed.open(QIODevice::ReadOnly))
        return false;
    QByteArray const next = changed.readAll();
    if (next.isEmpty() || changed.error() != QFileDevice::NoError)
        return false;
    QDir().mkpath(QFileInfo(path).absolutePath());
    AtomicFileWriter file(path);
    return file.open() && file.write(std::string_view(next.constData(), static_cast<std::size_t>(next.size()))) &&
           file.commit();
}

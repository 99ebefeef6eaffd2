#pragma once

#include <QString>
#include <QVariant>

#include <optional>

/// What the program remembers and is no preference: an INI file, as QSettings reads it. A disk that fails costs none of
/// it: what cannot be read is not written anew, and a file is replaced as a whole or not at all.
class ConfigFile {
public:
    explicit ConfigFile(QString const& path) : path(path) {}

    /// An invalid value if there is none of that key; nothing if the file is there and cannot be read.
    std::optional<QVariant> read(QString const& key) const;
    /// False if the value could not be kept.
    bool write(QString const& key, QVariant const& value) const;

private:
    std::optional<QByteArray> bytes() const;

    QString path;
};

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What a second start sends to the running program: its directory and its arguments, joined by "<" without quoting.
/// A path or argument that holds "<" arrives as two.
struct HandOverMessage {
    QString workingDirectory;
    QStringList arguments; ///< the program's own path first

    /// The arguments as the sender joins them; the service puts the directory in front.
    static QByteArray joinArguments(QStringList const& arguments);
    static HandOverMessage parse(QByteArray const& message);
    /// Whether the user started the program without anything to open.
    bool asksForNewWindow() const { return arguments.size() < 2; }
};

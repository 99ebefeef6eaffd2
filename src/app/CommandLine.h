#pragma once

#include <QStringList>

/// What a command line asks of the active window: sizes in pixels, folders and files.
struct CommandLine {
    int width = 0; ///< below 1: unchanged; no more than the screens have is granted
    int height = 0;
    int x = -1; ///< below 0: unchanged; a place on the screens is granted
    int y = -1;
    QStringList folders;
    QStringList files;
    QStringList missing; ///< paths of no file or folder, absolute

    /// Reads a process's argument list, whose first element is the program's own path. Switches are "-w", "-h", "-x"
    /// and "-y" with a decimal number behind; a switch at the very end ends the walk, a bad number counts as 0. Every
    /// other element is a path, looked up in `workingDirectory`, that of the start, and then in this process's own;
    /// what does not exist is not opened, and only told. A dangling link and a name that is no valid text count as
    /// files, so that the user is told why they do not open.
    static CommandLine parse(QStringList const& arguments, QString const& workingDirectory);
};

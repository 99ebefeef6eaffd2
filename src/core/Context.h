#pragma once

#include <QMetaType>

/// The states of a window and its table by which commands are live or not; a mask of the bits below.
enum class Context : unsigned {
    None = 0,
    TableActive = 1,              ///< a table is active and not loading
    FolderOpen = 2,               ///< the side bar holds at least one open folder
    Navigating = 4,               ///< the table has the focus and no cell is being edited
    CellEditing = 8,              ///< a cell is being edited
    EditorPaneShown = 16,         ///< the editor pane is shown
    MultiCellSelection = 32,      ///< more than one cell is selected
    MultiCellSelectionExtra = 64, ///< of the same class as MultiCellSelection; nothing sets it
    FileOnDisk = 128,             ///< the active table has a file path
    LauncherOpen = 256,           ///< the command launcher is open
    FindReplaceOpen = 512,        ///< the find and replace widget is open
    FindMode = 1024,              ///< that widget is in find mode
    ReplaceMode = 2048,           ///< that widget is in replace mode
    FindAllMode = 4096,           ///< a member of the find class
    FindResultsMode = 8192,       ///< a member of the find class
    FiltersPresent = 16384,       ///< the table's filter list is not empty
    HiddenPresent = 32768,        ///< the table has hidden rows or columns
    FiltersOrHiddenPresent = 65536,
    ReadOnly = 131072, ///< the active table is read-only
    Any = 0xFFFFFFFF,
};

Q_DECLARE_METATYPE(Context)

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

constexpr Context operator|(Context a, Context b) {
    return static_cast<Context>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
constexpr Context operator&(Context a, Context b) {
    return static_cast<Context>(static_cast<unsigned>(a) & static_cast<unsigned>(b));
}
constexpr Context operator~(Context a) {
    return static_cast<Context>(~static_cast<unsigned>(a));
}
constexpr Context& operator|=(Context& a, Context b) {
    return a = a | b;
}
constexpr Context& operator&=(Context& a, Context b) {
    return a = a & b;
}

/// Whether `value` has at least one bit of `bits`.
constexpr bool hasAnyContext(Context value, Context bits) {
    return (value & bits) != Context::None;
}

/// The bits that each table keeps for itself; they follow the active table.
constexpr Context tableContextMask = Context::TableActive | Context::CellEditing | Context::MultiCellSelection |
                                     Context::MultiCellSelectionExtra | Context::FileOnDisk | Context::FiltersPresent |
                                     Context::HiddenPresent | Context::FiltersOrHiddenPresent | Context::ReadOnly;

/// The bits that belong to the window, whichever table is active.
constexpr Context globalContextMask = Context::FolderOpen | Context::Navigating | Context::EditorPaneShown |
                                      Context::LauncherOpen | Context::FindReplaceOpen | Context::FindMode |
                                      Context::ReplaceMode | Context::FindAllMode | Context::FindResultsMode;

/// What is left of `context` while there is no table to work on, as during a load.
constexpr Context withoutTable(Context context) {
    return context & ~((tableContextMask & ~Context::ReadOnly) | Context::Navigating);
}

/// Adds bits to `value`, and what follows from them: an open launcher means an active table, an edited cell means that
/// the table is not navigated, and so on. Adding Context::Any sets all bits.
void addContextGlobal(Context& value, Context add);

/// Takes bits from `value`, and what cannot stay without them.
void removeContextGlobal(Context& value, Context remove);

/// `context` with all that follows from it.
Context modifyContext(Context context);

/// Whether commands that require `a` and `b` can be live together, apart from both needing a table.
bool doContextsOverlap(Context a, Context b);

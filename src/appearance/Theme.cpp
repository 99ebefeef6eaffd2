#include "appearance/Theme.h"

namespace {

constexpr int translucentAlpha = 40;

/// One rule block: a selector and its declarations, with colours named by their keys in braces.
struct StyleRule {
    char const* selector;
    char const* declarations;
};

// Rules read from the outermost panel inwards. "{Key}" stands for the theme's colour of that key.
constexpr StyleRule styleRules[] = {
    {"QWidget", "color: {TextColor}; background-color: {Background1Color};"},
    {"QMainWindow, QDialog, QMessageBox", "background-color: {Background1Color};"},
    {"QToolTip", "color: {TextColor}; background-color: {Background3Color}; border: 1px solid {Background4Color};"},
    {"QMenuBar", "background-color: {Background1Color};"},
    {"QMenuBar::item:selected, QMenu::item:selected", "background-color: {HoverItemColor};"},
    {"QMenu", "background-color: {Background3Color}; border: 1px solid {Background4Color};"},
    {"QMenu::item:disabled", "color: {DisabledTextColor};"},
    {"QStatusBar", "background-color: {Background2Color};"},
    {"QStatusBar::item", "border: none;"},
    {"QStatusBar QLabel", "color: {StaticTextColor}; background-color: transparent; padding: 2px 5px;"},
    {"QTabBar::tab", "color: {InactiveTabTextColor}; background-color: {Background2Color}; padding: 5px 12px;"},
    {"QTabBar::tab:selected", "color: {TextColor}; background-color: {Background3Color};"},
    {"QSplitter::handle", "background-color: {Background2Color};"},
    {"QTableView", "background-color: {CellColor}; gridline-color: {Background5Color}; border: none;"},
    {"QHeaderView, QTableCornerButton::section", "background-color: {HeaderColor}; border: none;"},
    {"QHeaderView::section", "color: {StaticTextColor}; background-color: {HeaderColor}; border: none;"
                             " border-right: 1px solid {Background5Color}; border-bottom: 1px solid {Background5Color};"
                             " padding: 2px 6px;"},
    {"QScrollBar:vertical", "background-color: {Background2Color}; width: 14px; margin: 0;"},
    {"QScrollBar:horizontal", "background-color: {Background2Color}; height: 14px; margin: 0;"},
    {"QScrollBar::handle", "background-color: {Background4Color}; border-radius: 4px; margin: 2px;"},
    {"QScrollBar::handle:vertical", "min-height: 28px;"},
    {"QScrollBar::handle:horizontal", "min-width: 28px;"},
    {"QScrollBar::handle:hover", "background-color: {SelectedItemColor};"},
    {"QScrollBar::add-line, QScrollBar::sub-line", "width: 0; height: 0;"},
    {"QScrollBar::add-page, QScrollBar::sub-page", "background: none;"},
    {"QPushButton", "color: {ButtonTextColor}; background-color: {Background5Color}; border-radius: 3px;"
                    " padding: 5px 14px;"},
    {"QPushButton:hover", "background-color: {HoverItemColor};"},
    {"QPushButton:default", "border: 1px solid {HighlightedButtonColor};"},
    {"QPushButton:focus", "border: 1px solid {HighlightedButtonColor};"},
    {"QCheckBox::indicator", "width: 9px; height: 9px; padding: 2px; border: 1px solid {StaticTextColor};"
                             " border-radius: 2px; background-color: {Background3Color};"},
    {"QCheckBox::indicator:checked", "background-color: {TextColor}; background-clip: content;"},
    {"QCheckBox::indicator:focus", "border: 1px solid {HighlightedButtonColor};"},
    {"NoticeLine", "background-color: {Background3Color}; border-top: 1px solid {HighlightedButtonColor};"},
    {"NoticeLine QLabel", "background-color: transparent;"},
    {"QLineEdit, QPlainTextEdit, QTextEdit",
     "background-color: {Background3Color}; border: 1px solid {Background4Color};"
     " selection-background-color: {SelectedTextColor};"},
    {"QComboBox, QSpinBox",
     "background-color: {Background3Color}; border: 1px solid {Background4Color}; padding: 2px;"},
    {"QTreeWidget, QListView", "background-color: {Background2Color}; border: none;"},
    {"QTreeWidget::item:hover, QListView::item:hover", "background-color: {HoverItemColor};"},
    {"QTreeWidget::item:selected, QListView::item:selected", "background-color: {SelectedItemColor};"},
    {"Launcher, PrevOptionWidget, Launcher QLabel, PrevOptionWidget QLabel", "background-color: transparent;"},
    {"Launcher QLineEdit", "border-radius: 4px; padding: 1px;"},
    {"OptionListWidget, OptionListWidget > QWidget > QWidget", "background-color: {Background2Color}; border: none;"},
    {"OptionWidget > QLabel", "color: {StaticTextColor};"},
    {"Launcher PillLabel", "color: {TextColor}; background-color: {Background5Color}; border-radius: 3px;"
                           " margin: 0px 3px 0px 3px; padding: 1px 4px;"},
    {"QProgressBar", "background-color: {Background3Color}; border: 1px solid {Background4Color}; text-align: center;"},
    {"QProgressBar::chunk", "background-color: {SelectedItemColor};"},
};

constexpr char const* colorKeys[] = {
#define GRIDWRIGHT_KEY(key) #key,
    GRIDWRIGHT_THEME_COLORS(GRIDWRIGHT_KEY)
#undef GRIDWRIGHT_KEY
};

} // namespace

QColor Theme::getTranslucentMainCellColor() const {
    QColor translucent = getMainCellColor();
    translucent.setAlpha(translucentAlpha);
    return translucent;
}

QString Theme::getStyleSheet() const {
    QString sheet;
    for (StyleRule const& rule : styleRules) {
        sheet += QLatin1String(rule.selector) + QStringLiteral(" { ") + QLatin1String(rule.declarations) +
                 QStringLiteral(" }\n");
    }
    for (std::size_t key = 0; key < colors.size(); ++key) {
        sheet.replace(QLatin1Char('{') + QLatin1String(colorKeys[key]) + QLatin1Char('}'), colors[key].name());
    }
    return sheet;
}

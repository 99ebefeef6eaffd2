#pragma once

#include <QColor>
#include <QString>

#include <array>

// The colours of a theme: key name and value in the built-in dark theme, which is the default. The key names are also
// those of theme files and of the getters and setters of Theme.
#define GRIDWRIGHT_THEME_COLORS(COLOR)                                                                                 \
    COLOR(Background1Color, "#222222")                                                                                 \
    COLOR(Background2Color, "#111111")                                                                                 \
    COLOR(Background3Color, "#3a3a3a")                                                                                 \
    COLOR(Background4Color, "#666666")                                                                                 \
    COLOR(Background5Color, "#444444")                                                                                 \
    COLOR(FuzzySearchHighlightedTextColor, "#ff0000")                                                                  \
    COLOR(HighlightedButtonColor, "#99bbff")                                                                           \
    COLOR(SelectedTextColor, "#6666cc")                                                                                \
    COLOR(SelectedItemColor, "#6666cc")                                                                                \
    COLOR(HoverItemColor, "#8888ee")                                                                                   \
    COLOR(InactiveTabTextColor, "#bbbbbb")                                                                             \
    COLOR(DisabledTextColor, "#888888")                                                                                \
    COLOR(ButtonTextColor, "white")                                                                                    \
    COLOR(HighlightedLineColor, "#ff0000")                                                                             \
    COLOR(CellBorderColor, "#dd5555")                                                                                  \
    COLOR(HistogramBarColor, "#bbbb00")                                                                                \
    COLOR(TextColor, "white")                                                                                          \
    COLOR(StaticTextColor, "#d6d6d6")                                                                                  \
    COLOR(HighlightedCellTextColor, "#1A1A1A")                                                                         \
    COLOR(HeaderColor, "#333333")                                                                                      \
    COLOR(MainCellColor, "#770077")                                                                                    \
    COLOR(SelectedCellColor, "#440044")                                                                                \
    COLOR(CellColor, "#222222")                                                                                        \
    COLOR(CellShade1Color, "#333333")                                                                                  \
    COLOR(CellShade2Color, "#444444")                                                                                  \
    COLOR(HeaderCellColor, "#000066")                                                                                  \
    COLOR(HeaderCellShade1Color, "#222277")                                                                            \
    COLOR(HeaderCellShade2Color, "#4444aa")                                                                            \
    COLOR(HighlightedCellColor, "#bbbb00")                                                                             \
    COLOR(HighlightedCellShade1Color, "#999900")                                                                       \
    COLOR(HighlightedCellShade2Color, "#888800")

/// Names the colours of a theme, in the order of their table.
enum class ThemeColor {
#define GRIDWRIGHT_ENUMERATE(key, value) key,
    GRIDWRIGHT_THEME_COLORS(GRIDWRIGHT_ENUMERATE)
#undef GRIDWRIGHT_ENUMERATE
        Count
};

/// One named set of colours and the alpha of the launcher's background. A plain record, copied to whoever paints.
class Theme {
public:
    /// The built-in dark theme.
    Theme();

    QString getName() const { return name; }
    QColor color(ThemeColor key) const { return colors[static_cast<std::size_t>(key)]; }

#define GRIDWRIGHT_ACCESSORS(key, value)                                                                               \
    QColor get##key() const {                                                                                          \
        return color(ThemeColor::key);                                                                                 \
    }                                                                                                                  \
    void set##key(QColor const& newColor) {                                                                            \
        colors[static_cast<std::size_t>(ThemeColor::key)] = newColor;                                                  \
    }
    GRIDWRIGHT_THEME_COLORS(GRIDWRIGHT_ACCESSORS)
#undef GRIDWRIGHT_ACCESSORS

    /// The main cell's colour with alpha 40, laid over the main cell's row and column.
    QColor getTranslucentMainCellColor() const;
    /// How much of that colour is blended into a cell that has one of its own.
    float getLineBlendFactor() const {
        return 0.15F;
    }
    int getLauncherBackgroundAlpha() const {
        return launcherBackgroundAlpha;
    }

    /// The style sheet of all widgets, in Qt's syntax. Background colours 1 to 5 fill panels from the outermost in.
    QString getStyleSheet() const;

private:
    QString name;
    std::array<QColor, static_cast<std::size_t>(ThemeColor::Count)> colors;
    int launcherBackgroundAlpha = 40;
};

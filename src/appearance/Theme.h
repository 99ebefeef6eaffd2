#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <array>

// The colours of a theme by their key names, which are also those of theme files and of the getters and setters of
// Theme.
#define GRIDWRIGHT_THEME_COLORS(COLOR)                                                                                 \
    COLOR(Background1Color)                                                                                            \
    COLOR(Background2Color)                                                                                            \
    COLOR(Background3Color)                                                                                            \
    COLOR(Background4Color)                                                                                            \
    COLOR(Background5Color)                                                                                            \
    COLOR(FuzzySearchHighlightedTextColor)                                                                             \
    COLOR(HighlightedButtonColor)                                                                                      \
    COLOR(SelectedTextColor)                                                                                           \
    COLOR(SelectedItemColor)                                                                                           \
    COLOR(HoverItemColor)                                                                                              \
    COLOR(InactiveTabTextColor)                                                                                        \
    COLOR(DisabledTextColor)                                                                                           \
    COLOR(ButtonTextColor)                                                                                             \
    COLOR(HighlightedLineColor)                                                                                        \
    COLOR(CellBorderColor)                                                                                             \
    COLOR(HistogramBarColor)                                                                                           \
    COLOR(TextColor)                                                                                                   \
    COLOR(StaticTextColor)                                                                                             \
    COLOR(HighlightedCellTextColor)                                                                                    \
    COLOR(HeaderColor)                                                                                                 \
    COLOR(MainCellColor)                                                                                               \
    COLOR(SelectedCellColor)                                                                                           \
    COLOR(CellColor)                                                                                                   \
    COLOR(CellShade1Color)                                                                                             \
    COLOR(CellShade2Color)                                                                                             \
    COLOR(HeaderCellColor)                                                                                             \
    COLOR(HeaderCellShade1Color)                                                                                       \
    COLOR(HeaderCellShade2Color)                                                                                       \
    COLOR(HighlightedCellColor)                                                                                        \
    COLOR(HighlightedCellShade1Color)                                                                                  \
    COLOR(HighlightedCellShade2Color)

/// Names the colours of a theme, in the order of their table.
enum class ThemeColor {
#define GRIDWRIGHT_ENUMERATE(key) key,
    GRIDWRIGHT_THEME_COLORS(GRIDWRIGHT_ENUMERATE)
#undef GRIDWRIGHT_ENUMERATE
        Count
};

/// One named set of colours and the alpha of the launcher's background. A plain record, copied to whoever paints.
class Theme {
public:
    /// The built-in dark theme.
    Theme();
    /// The theme that convertStringToTheme gives.
    explicit Theme(QString const& name) : Theme(convertStringToTheme(name)) {}

    static Theme darkTheme();
    static Theme lightTheme();
    static Theme draculaTheme();
    static Theme solarizedDark();
    static Theme solarizedLight();
    /// The theme of that name, in any case of letters; the dark theme if there is none.
    static Theme convertStringToTheme(QString const& name);
    /// The names of all themes to choose from.
    static QStringList getNamesList();

    QString getName() const { return name; }
    QColor color(ThemeColor key) const { return colors[static_cast<std::size_t>(key)]; }

#define GRIDWRIGHT_ACCESSORS(key)                                                                                      \
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
    struct NoColors {};
    explicit Theme(NoColors /*unused*/) {}
    /// A built-in theme by its place in the list of names.
    static Theme builtIn(std::size_t place);

    QString name;
    std::array<QColor, static_cast<std::size_t>(ThemeColor::Count)> colors;
    int launcherBackgroundAlpha = 40;
};

#include "appearance/Theme.h"

#include <iterator>

namespace {

constexpr std::size_t numThemes = 5;

// In the order in which they are offered.
constexpr std::array<char const*, numThemes> themeNames = {"Dark", "Light", "Dracula", "Solarized Dark",
                                                           "Solarized Light"};

struct ColorRow {
    ThemeColor key;
    std::array<char const*, numThemes> values; ///< in the order of the names
};

constexpr ColorRow colorRows[] = {
    {ThemeColor::Background1Color, {"#222222", "#f0f0f0", "#282a36", "#002b36", "#fdf6e3"}},
    {ThemeColor::Background2Color, {"#111111", "#e4e4e4", "#21222c", "#00212b", "#eee8d5"}},
    {ThemeColor::Background3Color, {"#3a3a3a", "#dadada", "#343746", "#073642", "#f5efdc"}},
    {ThemeColor::Background4Color, {"#666666", "#b2b2b2", "#6272a4", "#586e75", "#93a1a1"}},
    {ThemeColor::Background5Color, {"#444444", "#c8c8c8", "#44475a", "#0f4552", "#ddd6c1"}},
    {ThemeColor::FuzzySearchHighlightedTextColor, {"#ff0000", "#c80000", "#ff5555", "#ff6a5f", "#c8241f"}},
    {ThemeColor::HighlightedButtonColor, {"#99bbff", "#3355cc", "#bd93f9", "#b58900", "#b58900"}},
    {ThemeColor::SelectedTextColor, {"#6666cc", "#a8b8f0", "#6272a4", "#586e75", "#c9d7dc"}},
    {ThemeColor::SelectedItemColor, {"#6666cc", "#a8b8f0", "#6272a4", "#586e75", "#c9d7dc"}},
    {ThemeColor::HoverItemColor, {"#8888ee", "#c4d0f8", "#4f5a85", "#40606a", "#dde5e4"}},
    {ThemeColor::InactiveTabTextColor, {"#bbbbbb", "#4d4d4d", "#bfbfc8", "#93a1a1", "#586e75"}},
    {ThemeColor::DisabledTextColor, {"#888888", "#808080", "#8088a8", "#657b83", "#93a1a1"}},
    {ThemeColor::ButtonTextColor, {"white", "#1A1A1A", "#f8f8f2", "#fdf6e3", "#002b36"}},
    {ThemeColor::HighlightedLineColor, {"#ff0000", "#ff0000", "#ff5555", "#dc322f", "#dc322f"}},
    {ThemeColor::CellBorderColor, {"#dd5555", "#cc3333", "#ff79c6", "#cb4b16", "#cb4b16"}},
    {ThemeColor::HistogramBarColor, {"#bbbb00", "#7788dd", "#f1fa8c", "#b58900", "#b58900"}},
    {ThemeColor::TextColor, {"white", "#1A1A1A", "#f8f8f2", "#eee8d5", "#002b36"}},
    {ThemeColor::StaticTextColor, {"#d6d6d6", "#333333", "#e0e0dc", "#93a1a1", "#586e75"}},
    {ThemeColor::HighlightedCellTextColor, {"#1A1A1A", "#1A1A1A", "#282a36", "#002b36", "#002b36"}},
    {ThemeColor::HeaderColor, {"#333333", "#dedede", "#343746", "#073642", "#eee8d5"}},
    {ThemeColor::MainCellColor, {"#770077", "#e0a0e0", "#8b3f77", "#50559f", "#d9b8d6"}},
    {ThemeColor::SelectedCellColor, {"#440044", "#f0d0f0", "#5a3557", "#2f3f70", "#ecdcd9"}},
    {ThemeColor::CellColor, {"#222222", "#fafafa", "#282a36", "#002b36", "#fdf6e3"}},
    {ThemeColor::CellShade1Color, {"#333333", "#eeeeee", "#30323f", "#073642", "#f5eedb"}},
    {ThemeColor::CellShade2Color, {"#444444", "#e2e2e2", "#3a3c4b", "#0f4552", "#eee8d5"}},
    {ThemeColor::HeaderCellColor, {"#000066", "#cfd8ff", "#4a3f7a", "#1a4f6f", "#d2e2e6"}},
    {ThemeColor::HeaderCellShade1Color, {"#222277", "#c0ccfa", "#574b8c", "#225d80", "#c5d9de"}},
    {ThemeColor::HeaderCellShade2Color, {"#4444aa", "#b0bef2", "#6459a0", "#2b6a90", "#b7cfd6"}},
    {ThemeColor::HighlightedCellColor, {"#bbbb00", "#ffee66", "#f1fa8c", "#b58900", "#f0d060"}},
    {ThemeColor::HighlightedCellShade1Color, {"#999900", "#f5e255", "#e0e97c", "#a87f00", "#e5c455"}},
    {ThemeColor::HighlightedCellShade2Color, {"#888800", "#ead644", "#d0d86c", "#9b7500", "#dab84a"}},
};
static_assert(std::size(colorRows) == static_cast<std::size_t>(ThemeColor::Count));

enum Place : std::size_t { Dark, Light, Dracula, SolarizedDark, SolarizedLight };

} // namespace

Theme::Theme() : Theme(darkTheme()) {}

Theme Theme::builtIn(std::size_t place) {
    static std::array<Theme, numThemes> const themes = [] {
        std::array<Theme, numThemes> made{Theme(NoColors()), Theme(NoColors()), Theme(NoColors()), Theme(NoColors()),
                                          Theme(NoColors())};
        for (std::size_t i = 0; i < numThemes; ++i) {
            made[i].name = QLatin1String(themeNames[i]);
            for (ColorRow const& row : colorRows) {
                made[i].colors[static_cast<std::size_t>(row.key)] = QColor(QLatin1String(row.values[i]));
            }
        }
        return made;
    }();
    return themes[place];
}

Theme Theme::darkTheme() {
    return builtIn(Dark);
}

Theme Theme::lightTheme() {
    return builtIn(Light);
}

Theme Theme::draculaTheme() {
    return builtIn(Dracula);
}

Theme Theme::solarizedDark() {
    return builtIn(SolarizedDark);
}

Theme Theme::solarizedLight() {
    return builtIn(SolarizedLight);
}

Theme Theme::convertStringToTheme(QString const& name) {
    for (std::size_t i = 0; i < numThemes; ++i) {
        if (name.compare(QLatin1String(themeNames[i]), Qt::CaseInsensitive) == 0) {
            return builtIn(i);
        }
    }
    return darkTheme();
}

QStringList Theme::getNamesList() {
    QStringList names;
    for (char const* const name : themeNames) {
        names.append(QLatin1String(name));
    }
    return names;
}

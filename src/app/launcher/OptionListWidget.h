#pragma once

#include "app/launcher/OptionData.h"
#include "app/launcher/OptionStyle.h"
#include "appearance/Theme.h"

#include <QScrollArea>

#include <vector>

class OptionWidget;
class QVBoxLayout;

/// The rows that a launcher offers: filtered and ranked by what is typed, one of them selected. All rows are made at
/// once and only moved, shown and hidden later; their labels are filled in when they come in sight, and the rest while
/// the program has nothing else to do.
class OptionListWidget : public QScrollArea {
    Q_OBJECT

public:
    OptionListWidget(std::vector<OptionData> const& options, Theme const& theme, QWidget* parent = nullptr);

    int count() const { return static_cast<int>(rows.size()); }
    int shownCount() const { return static_cast<int>(shown.size()); }
    bool isFilled() const { return filledRows == rows.size(); }
    /// The shown row of that place, from the top.
    OptionWidget const* shownRow(int index) const { return shown.at(static_cast<std::size_t>(index)); }
    /// Among the shown rows; -1 when none is.
    int getSelectedIndex() const { return selectedIndex; }
    /// Empty when no row is selected.
    QString selectedResponse() const;
    /// Moves the selection down, or up by a negative number, as far as there are rows.
    void moveSelection(int rowsDown);
    /// Pixels that all shown rows take together, up to as many as are ever shown at once.
    int contentHeight() const;
    void setTheme(Theme const& theme);

public slots:
    /// Shows the rows that match, the best first; all of them in their order without a query.
    void updateOptionList(QString const& query);
    /// Tells the row of the current file which one that is.
    void onCurrentTableChanged(QString const& tableName);

signals:
    void itemClicked(QString const& response);
    void selectionChangedSignal(QString const& response);
    void scrolledSignal();
    void contentHeightChangedSignal();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    static OptionStyle makeOptionWidgetStyleSheetsAndHTMLTags(Theme const& theme);
    std::vector<OptionWidget*> match(QString const& query);
    void arrange(std::vector<OptionWidget*> newShown);
    void select(int index);
    void fillListWidgets();
    void fillRowsInSight();

    OptionStyle style;
    QVBoxLayout* column;
    std::vector<OptionWidget*> rows;  ///< in their original order
    std::vector<OptionWidget*> shown; ///< from the top
    std::size_t filledRows = 0;       ///< so many of `rows`, from the first on, were filled in idle time
    int selectedIndex = -1;
    OptionWidget* selected = nullptr;
};

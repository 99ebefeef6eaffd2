#pragma once

#include "app/launcher/OptionData.h"
#include "app/launcher/OptionStyle.h"
#include "appearance/Theme.h"

#include <QScrollArea>

#include <vector>

class OptionWidget;
class QLabel;

/// The rows that a launcher offers, in a column: filtered and ranked by what is typed, one of them selected. All rows
/// are made at once and only moved, shown and hidden later; their labels are filled in when they come in sight, and the
/// rest while the program has nothing else to do.
class OptionListWidget : public QScrollArea {
    Q_OBJECT

public:
    /// `noMatch` is shown when no row matches what is typed; may be empty.
    OptionListWidget(std::vector<OptionData> const& options, QString const& noMatch, Theme const& theme,
                     QWidget* parent = nullptr);

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
    /// Selects the first shown row with that response, if there is one.
    void selectResponse(QString const& response);
    /// What stands in place of the rows; empty while any matches.
    QString shownNotice() const;
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
    using Rows = std::vector<OptionWidget*>;

    static OptionStyle makeOptionWidgetStyleSheetsAndHTMLTags(Theme const& theme);
    Rows match(QString const& query);
    static int heightOf(Rows::const_iterator begin, Rows::const_iterator end);
    void resizeContent();
    void placeRowsInSight();
    void scrollToSelected();
    void select(int index);
    void fillListWidgets();

    OptionStyle style;
    QLabel* notice;
    Rows rows;                  ///< in their original order
    Rows shown;                 ///< those that match, from the top
    Rows placed;                ///< those of them that are in sight
    std::size_t filledRows = 0; ///< so many of `rows`, from the first on, were filled in idle time
    int selectedIndex = -1;
    OptionWidget* selected = nullptr;
};

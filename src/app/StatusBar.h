#pragma once

#include "core/RangeSize.h"

#include <QStatusBar>

#include <array>
#include <vector>

class QLabel;
class QToolButton;

/// The window's status bar: the size and the dialect of the active table, each in a label of its own, between two small
/// buttons for the panes at the window's sides. It holds no logic: presses are signals.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    enum class Label {
        TableSize,
        Selection,
        CellLength,
        Stats,
        Filters,
        Delimiter,
        Encoding,
        LineEnding,
        Mode,
    };
    static constexpr std::size_t labelCount = 9;

    explicit StatusBar(QWidget* parent = nullptr);

    void setText(Label label, QString const& text);
    QString text(Label label) const;

    /// "12 rows x 3 columns", with the visible counts behind in parentheses where they differ.
    static QString tableSizeText(int rows, int cols, int visibleRows, int visibleCols);
    /// What is selected: cells, whole rows and columns, or a rectangle by width and height.
    static QString selectionText(RangeSize const& size);
    /// The one delimiter of a table, or both where it is saved with another one.
    static QString delimiterText(QString const& delimiter, QString const& saveDelimiter);

    /// "Filters: " and the filtered rows and columns in ascending order, in User numbers.
    static QString filtersText(std::vector<int> rows, std::vector<int> cols);

signals:
    /// A label that stands for commands was pressed.
    void labelPressedSignal(StatusBar::Label label);
    void sideBarButtonPressedSignal();
    void metadataButtonPressedSignal();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct LabelRoom {
        int width; ///< for all labels with their gaps, in pixels
        int gap;
    };

    LabelRoom labelRoom() const;
    void dropWhatDoesNotFit();
    QRect messageArea() const;
    void makeRoomForMessage();
    QToolButton* makeSideButton(QString const& image, QString const& toolTip);

    std::array<QLabel*, labelCount> labels{};
    QToolButton* sideBarButton = nullptr; ///< at the left, where a message stands
};

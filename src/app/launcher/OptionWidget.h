#pragma once

#include "app/launcher/OptionData.h"
#include "app/launcher/OptionStyle.h"

#include <QWidget>

#include <vector>

class QLabel;

/// One row of an OptionListWidget. Its labels are made when it first comes in sight.
class OptionWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool selected READ isSelected)

public:
    /// `style` belongs to the list, and outlives the row.
    OptionWidget(OptionData const& data, OptionStyle const& style, QWidget* parent);

    /// Pixels of a row's height.
    static int rowHeight(bool withDescription);

    OptionData const& getData() const { return data; }
    int getScore() const { return score; }
    void setScore(int newScore) { score = newScore; }
    /// The text in HTML, with the matched characters marked.
    QString const& getHighlightedText() const { return highlightedText; }
    bool isFilled() const { return textLabel != nullptr; }
    bool isSelected() const { return selected; }

    /// Makes the labels, if there are none yet, and brings them up to date.
    void fillWidget();
    /// Marks the characters at `positions`, ascending.
    void highlightOption(std::vector<int> const& positions);
    void setSelected(bool on);
    void setDescription(QString const& description);
    /// The style strings have changed.
    void onStyleChanged();

signals:
    void pressedSignal(OptionWidget* row);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void makeHtml();
    void nameForAssistance();

    OptionData data;
    OptionStyle const& style;
    int score = -1;
    std::vector<int> positions; ///< of the matched characters
    QString highlightedText;
    bool selected = false;
    bool upToDate = false; ///< the text label shows the highlighted text
    QLabel* textLabel = nullptr;
    QLabel* descriptionLabel = nullptr;
};

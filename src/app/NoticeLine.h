#pragma once

#include <QFrame>
#include <QStringList>

class QBoxLayout;
class QLabel;
class QPushButton;

/// A line above the status bar that tells something without holding anybody up. It stays until it is dismissed. With
/// the focus it takes no text, and no key without Ctrl, Alt or Meta gets past it, not even as a shortcut of the window:
/// what is typed was meant for something that is gone. Tab leads to its buttons.
class NoticeLine : public QFrame {
    Q_OBJECT

public:
    /// With an `action`, the label of a button, the line offers to do something about what it tells.
    explicit NoticeLine(QString const& action, QWidget* parent = nullptr);

    /// Shows the line. Without paths the sentence stands as it is. Each path stands in it as it is, and wraps where a
    /// folder ends; one that is longer than the line loses its middle, and stands whole in the tool tip.
    void tell(QString const& sentence, QStringList const& paths);
    /// What is told; empty if nothing is.
    QString text() const { return told; }
    void dismiss();

signals:
    void actionSignal();
    /// Nothing is told any more.
    void dismissedSignal();
    /// Escape: the focus is to go elsewhere.
    void leftSignal();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QPushButton* addButton(QString const& text);
    QString withPaths(QStringList const& shown) const;
    void arrange();
    int buttonWidth() const;

    QLabel* label;
    QBoxLayout* row;
    QBoxLayout* buttons;
    QString sentence;
    QStringList paths;
    QString told;
};

#pragma once

#include "app/launcher/OptionData.h"
#include "appearance/Theme.h"

#include <QString>
#include <QWidget>

#include <vector>

class OptionListWidget;
class QLabel;
class QLineEdit;

/// The panel at the top of a table through which the program asks for a command, a choice or a text. It knows nothing
/// of what the answer is for.
class Launcher : public QWidget {
    Q_OBJECT

public:
    explicit Launcher(Theme const& theme, QWidget* parent = nullptr);

    void setQueryTitle(QString const& title);
    /// Rich text below the title.
    void setQueryDescription(QString const& description);
    void setEditorText(QString const& text);
    void setEditorSelection(int start, int length);
    void setEditorCursorPosition(int position);
    /// Whether an answer closes the launcher, as it does at first.
    void setCloseOnResponse(bool on) { closeOnResponse = on; }
    /// Offers rows, of which what is typed filters the fitting ones. `noMatch` stands in their place when none fits.
    void setOptions(std::vector<OptionData> const& options, QString const& noMatch = {});
    /// Selects the row with that response, if there is one.
    void selectOption(QString const& response);
    /// Makes the line that tells about the entry while it is typed.
    void setupEntryFeedback();
    void setEntryFeedbackText(QString const& text);
    void setTheme(Theme const& newTheme);

    /// As high as its parts need and `extra` pixels.
    void adjustHeight(int extra);
    /// Takes a width and as much of `mostHeight` as its parts need.
    void fit(int newWidth, int mostHeight);

    /// What Enter would answer now.
    QString getSelectedResponseString() const;
    OptionListWidget* getOptionList() const { return optionList; }
    QLineEdit* getEditor() const { return editor; }

public slots:
    /// Goes away without an answer.
    void closeLauncher();
    void putFocusInPromptEditor();
    void onCurrentTableChanged(QString const& tableName);

signals:
    void launcherResponseSignal(QString const& response);
    /// The same, and what of the editor's text was selected, and where its cursor stood.
    void launcherResponseWithStateSignal(QString const& response, int selectionStart, int selectionLength, int cursor);
    void promptEditedSignal(QString const& text);
    /// Another row is selected; the response it stands for.
    void selectionChangedSignal(QString const& response);
    /// It is gone without an answer.
    void launcherClosedSignal();
    /// It is gone, for whichever reason; sent before the answer is.
    void launcherLeftSignal();
    void goBackSignal();
    /// The list needs more or less room than it had.
    void heightChangedSignal();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    bool collapseSelection(bool toStart);
    void onPressEnter();
    void respond(QString const& response);
    void leave();
    QLabel* addLabel(int pointSize);

    Theme theme;
    QLabel* titleLabel;
    QLabel* descriptionLabel;
    QLabel* feedbackLabel = nullptr;
    QLineEdit* editor;
    OptionListWidget* optionList = nullptr;
    int mostHeight;
    bool closeOnResponse = true;
};

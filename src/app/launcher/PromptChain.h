#pragma once

#include "app/launcher/PromptStep.h"
#include "appearance/Theme.h"

#include <QObject>
#include <QPointer>

#include <memory>

class PaneView;
class TableView;

/// Puts the questions of one chain to the user, one after the other: shows a step in the launcher, asks again after a
/// bad answer, carries a good one out, and keeps the answers given so that the user can go back to them. A chain ends
/// with the last answer, with Esc, and when the table that it started at goes.
class PromptChain : public QObject, public PromptAsker {
    Q_OBJECT

public:
    /// `theme` is the window's, and outlives the chain.
    PromptChain(PaneView* paneView, Theme const& theme, QObject* parent = nullptr);

    /// Begins a new chain with `step`; one that is open ends without an answer.
    void start(PromptStep step);
    /// Goes on with the chain whose answer is being carried out. At any other time begins a new one.
    void ask(PromptStep step) override;
    /// Ends the chain without an answer, and shows the part of the table that was in sight before it.
    void close();

    /// Whether a question waits for its answer.
    bool isOpen() const { return current != nullptr; }
    /// The title of the question that is open; empty without one.
    QString currentTitle() const { return current ? current->title : QString(); }

private:
    using Step = std::shared_ptr<PromptStep const>;
    struct Answered {
        Step step;
        QString answer; ///< as given
        QString text;   ///< as the editor shows it
    };

    /// Shows the prompt with `text` in its editor, of which `length` characters from `start` on are selected.
    void show(Step const& step, QString const& text, int start, int length, int cursor);
    void showWithAllSelected(Step const& step, QString const& text);
    void showAnswers();
    void onAnswer(QString const& answer, int start, int length, int cursor);
    void carryOut(Step const& step, QString const& answer);
    void onLauncherClosed();
    void dropLauncher();
    void goTo(std::size_t index);
    void focusTable();
    void onTableRemoved(TableView const* removed);

    PaneView* paneView;
    Theme const& theme;
    Step current;                   ///< the question that is open; null without one
    std::unique_ptr<Answered> last; ///< the answer that is being carried out
    std::vector<Answered> answered; ///< before the open question
    QPointer<TableView> table;      ///< where the chain started
};

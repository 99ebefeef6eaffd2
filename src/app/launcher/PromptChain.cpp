#include "app/launcher/PromptChain.h"

#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PrevOptionWidget.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <algorithm>
#include <utility>

namespace {

void callIfSet(std::function<void()> const& function) {
    if (function)
        function();
}

/// What the user saw of an answer: a row that was chosen answers with something else than its text.
QString shownText(PromptStep const& step, QString const& answer) {
    auto const option = std::find_if(step.options.begin(), step.options.end(),
                                     [&](OptionData const& each) { return each.response == answer; });
    return option == step.options.end() ? answer : option->text;
}

} // namespace

PromptChain::PromptChain(PaneView* paneView, Theme const& theme, QObject* parent)
    : QObject(parent), paneView(paneView), theme(theme) {
    connect(paneView, &PaneView::tableRemovedSignal, this, &PromptChain::onTableRemoved);
}

void PromptChain::start(PromptStep step) {
    close();
    last.reset();
    answered.clear();
    table = paneView->getActiveTable();
    if (table)
        table->setInitialScrollBarLocations();
    auto const first = std::make_shared<PromptStep const>(std::move(step));
    showWithAllSelected(first, first->text);
}

void PromptChain::ask(PromptStep step) {
    if (!last) {
        start(std::move(step));
        return;
    }
    answered.push_back(*std::exchange(last, nullptr));
    auto const next = std::make_shared<PromptStep const>(std::move(step));
    showWithAllSelected(next, next->text);
}

void PromptChain::goTo(std::size_t index) {
    if (!isOpen() || index >= answered.size())
        return;
    Answered const target = answered[index];
    answered.resize(index);
    dropLauncher();
    callIfSet(std::exchange(current, nullptr)->closed);
    showWithAllSelected(target.step, target.text);
}

void PromptChain::close() {
    if (!isOpen())
        return;
    dropLauncher();
    onLauncherClosed();
}

/// Takes the prompt away without ending the chain.
void PromptChain::dropLauncher() {
    if (Launcher* const launcher = paneView->getLauncher()) {
        launcher->disconnect(this);
        paneView->closeLauncher();
    }
}

void PromptChain::onLauncherClosed() {
    Step const step = std::exchange(current, nullptr);
    if (step == nullptr)
        return;
    answered.clear();
    paneView->clearPrevOptionList();
    callIfSet(step->closed);
    if (table)
        table->returnToInitialScrollBarLocations();
    focusTable();
}

void PromptChain::focusTable() {
    if (TableView* const active = paneView->getActiveTable())
        active->takeFocus();
}

// The table is still whole, so that the step can take back what it has shown in it.
void PromptChain::onTableRemoved(TableView const* removed) {
    if (removed == table)
        close();
}

void PromptChain::showWithAllSelected(Step const& step, QString const& text) {
    int const length = static_cast<int>(text.size());
    show(step, text, 0, length, length);
}

void PromptChain::show(Step const& step, QString const& text, int start, int length, int cursor) {
    current = step;
    auto* const launcher = new Launcher(theme, paneView);
    launcher->setQueryTitle(step->title);
    launcher->setQueryDescription(step->description);
    if (!step->options.empty())
        launcher->setOptions(step->options, step->noMatch);
    launcher->setEditorText(text);
    if (text.isEmpty())
        launcher->selectOption(step->selected);
    if (length > 0)
        launcher->setEditorSelection(start, length);
    else
        launcher->setEditorCursorPosition(cursor);
    if (step->feedback) {
        launcher->setupEntryFeedback();
        launcher->setEntryFeedbackText(step->feedback(text));
        connect(launcher, &Launcher::promptEditedSignal, this,
                [step, launcher](QString const& edited) { launcher->setEntryFeedbackText(step->feedback(edited)); });
    }
    connect(launcher, &Launcher::launcherResponseWithStateSignal, this, &PromptChain::onAnswer);
    connect(launcher, &Launcher::launcherClosedSignal, this, &PromptChain::onLauncherClosed);
    showAnswers();
    paneView->setLauncher(launcher);
}

void PromptChain::showAnswers() {
    paneView->clearPrevOptionList();
    std::vector<PrevOptionWidget*> strips;
    for (std::size_t i = 0; i < answered.size(); ++i) {
        strips.push_back(new PrevOptionWidget(answered[i].step->title, answered[i].text, theme));
        connect(strips.back(), &PrevOptionWidget::expandThisSignal, this, [this, i] { goTo(i); });
    }
    paneView->addPrevOptions(strips);
}

void PromptChain::onAnswer(QString const& answer, int start, int length, int cursor) {
    // Keys that were pressed before the prompt went may still come from it.
    Step const step = current;
    if (step == nullptr)
        return;
    QString const complaint = step->complaint ? step->complaint(answer) : QString();
    if (complaint.isEmpty()) {
        carryOut(step, answer);
        return;
    }
    MsgBox::inform(paneView, theme, complaint);
    // The chain may have ended while the box was open.
    if (current != step)
        return;
    if (step->options.empty())
        show(step, answer, start, length, cursor);
    else
        showWithAllSelected(step, shownText(*step, answer));
}

void PromptChain::carryOut(Step const& step, QString const& answer) {
    current.reset();
    paneView->clearPrevOptionList();
    focusTable();
    callIfSet(step->closed);
    last = std::make_unique<Answered>(Answered{step, answer, shownText(*step, answer)});
    QPointer<PromptChain> const self(this);
    step->carryOut(answer, *this);
    if (self.isNull())
        return;
    last.reset();
    if (!isOpen())
        answered.clear();
}

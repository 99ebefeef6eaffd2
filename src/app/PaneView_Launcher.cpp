// The launcher over the active table, and above it the answers that were given before.

#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/PrevOptionWidget.h"

#include <QHeaderView>
#include <QTimer>

#include <algorithm>
#include <utility>

void PaneView::setLauncher(Launcher* newLauncher) {
    // The strips belong to the launcher that comes.
    auto const strips = std::exchange(prevOptions, {});
    closeLauncher();
    prevOptions = strips;
    launcher = newLauncher;
    launcher->setParent(this);
    connect(launcher, &Launcher::launcherLeftSignal, this, &PaneView::onLauncherLeft);
    connect(launcher, &Launcher::launcherClosedSignal, this, &PaneView::clearPrevOptionList);
    connect(launcher, &Launcher::heightChangedSignal, this, &PaneView::moveAndResizeLauncher);
    if (!prevOptions.empty()) {
        connect(launcher, &Launcher::goBackSignal, prevOptions.back(), &PrevOptionWidget::goHereSignal);
    }
    emit addContextSignal(Context::LauncherOpen);
    launcher->show();
    moveAndResizeLauncher();
    launcher->putFocusInPromptEditor();
    // A click that opened the launcher may still move the focus when it ends.
    QTimer::singleShot(0, launcher, &Launcher::putFocusInPromptEditor);
}

void PaneView::closeLauncher() {
    if (launcher != nullptr) {
        launcher->closeLauncher();
    }
}

void PaneView::onLauncherLeft() {
    launcher = nullptr;
    emit removeContextSignal(Context::LauncherOpen);
}

void PaneView::moveAndResizeLauncher() {
    if (launcher == nullptr || activeTable == nullptr) {
        return;
    }
    constexpr double shareOfPane = 0.8;
    constexpr int narrowest = 400;
    constexpr int widest = 750;
    constexpr int stripPadding = 20;
    constexpr int gap = 10;
    int const wanted = std::clamp(static_cast<int>(shareOfPane * width()), narrowest, widest);
    int const panelWidth = std::min(wanted, width()); // whole also in a pane that is narrower than it likes to be
    int const left = (width() - panelWidth) / 2;
    QWidget const* const header = activeTable->horizontalHeader();
    int top = header->mapTo(this, QPoint(0, header->isVisible() ? header->height() : 0)).y();
    for (PrevOptionWidget* const strip : prevOptions) {
        strip->adjustHeight(stripPadding);
        strip->setGeometry(left, top, panelWidth, strip->height());
        strip->show();
        strip->raise();
        top += strip->height() + gap;
    }
    launcher->fit(panelWidth, height() - top);
    launcher->move(left, top);
    launcher->raise();
}

void PaneView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    moveAndResizeLauncher();
}

void PaneView::addPrevOption(PrevOptionWidget* option) {
    addPrevOptions({option});
}

void PaneView::addPrevOptions(std::vector<PrevOptionWidget*> const& options) {
    for (PrevOptionWidget* const option : options) {
        option->setParent(this);
        connect(option, &PrevOptionWidget::goHereSignal, this, &PaneView::onPrevOptionGoHere);
        prevOptions.push_back(option);
    }
    moveAndResizeLauncher();
}

void PaneView::clearPrevOptionList() {
    dropPrevOptionsFrom(0);
}

void PaneView::dropPrevOptionsFrom(std::size_t index) {
    for (std::size_t i = index; i < prevOptions.size(); ++i) {
        prevOptions[i]->hide();
        prevOptions[i]->deleteLater(); // it may be sending the signal that this is the answer to
    }
    prevOptions.resize(std::min(index, prevOptions.size()));
}

void PaneView::onPrevOptionGoHere() {
    auto const strip = std::find(prevOptions.begin(), prevOptions.end(), sender());
    if (strip == prevOptions.end()) {
        return;
    }
    PrevOptionWidget* const chosen = *strip;
    dropPrevOptionsFrom(static_cast<std::size_t>(strip - prevOptions.begin()));
    emit chosen->expandThisSignal();
}

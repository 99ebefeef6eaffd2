#include "view/ProgressDialog.h"

#include "view/KeyRest.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

ProgressDialog::ProgressDialog(QString const& what, Theme const& theme, QWidget* parent)
    : QDialog(parent), bar(new QProgressBar(this)) {
    constexpr int shortJob = 300; // milliseconds
    constexpr int width = 320;
    setWindowTitle(QStringLiteral("Gridwright"));
    setStyleSheet(theme.getStyleSheet());
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(width);
    auto* const layout = new QVBoxLayout(this);
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    layout->addWidget(new QLabel(what, this));
    layout->addWidget(bar);
    layout->addWidget(cancel, 0, Qt::AlignRight);
    bar->setRange(0, 100);
    bar->setAccessibleName(what);
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setFocus();
    cancel->setAutoDefault(false);
    if (KeyRest::isNeeded())
        rest = std::make_unique<KeyRest>(*this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    showTimer.setSingleShot(true);
    connect(&showTimer, &QTimer::timeout, this, &QWidget::show);
    showTimer.start(shortJob);
}

ProgressDialog::~ProgressDialog() = default;

void ProgressDialog::setPercent(float percent) {
    bar->setValue(static_cast<int>(percent));
}

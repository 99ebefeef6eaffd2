#pragma once

#include "appearance/Theme.h"

#include <QDialog>
#include <QTimer>

#include <memory>

class KeyRest;
class QProgressBar;

/// Stands before a window while a long job of one of its tables runs, and shows how far it is. Shows itself only after
/// a moment, so that short jobs do not flash. The job is to be canceled on the signal rejected(), for which no key is
/// preset. One that comes from outside (FromOutside) or right after a key takes none until the keys have rested.
class ProgressDialog : public QDialog {
    Q_OBJECT

public:
    ProgressDialog(QString const& what, Theme const& theme, QWidget* parent);
    ~ProgressDialog() override;

public slots:
    void setPercent(float percent);

private:
    QProgressBar* bar;
    QTimer showTimer;
    std::unique_ptr<KeyRest> rest;
};

#pragma once

#include <QApplication>
#include <QTest>

/// Types as a user does: the first key opens an editor, which has the others.
inline void typeText(QString const& text) {
    for (QChar const each : text)
        QTest::keyClicks(QApplication::focusWidget(), QString(each));
}

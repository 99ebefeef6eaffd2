#pragma once

#include <QString>

/// What the user is told of a failed save; what is not known of file and reason is left out.
QString buildSaveFailureMessage(QString const& path, QString const& reason);

#pragma once

#include <QString>

/// One row that the launcher offers.
struct OptionData {
    OptionData() = default;
    explicit OptionData(QString const& text, QString const& description = {})
        : text(text), description(description), response(text) {}

    QString text;         ///< what is shown, and what a typed query is matched against
    QString valuePill;    ///< the present value of a setting; may be empty
    QString shortcutPill; ///< the shortcut of a command; may be empty
    QString description;  ///< a second line; may be empty
    QString response;     ///< what the launcher answers when this row is chosen
};

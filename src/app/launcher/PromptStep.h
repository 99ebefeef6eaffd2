#pragma once

#include "app/launcher/OptionData.h"

#include <QString>

#include <functional>
#include <vector>

struct PromptStep;

/// Takes the questions of a chain.
class PromptAsker {
public:
    virtual ~PromptAsker() = default;
    /// Puts `step` to the user. Called while an answer is carried out, it continues that answer's chain.
    virtual void ask(PromptStep step) = 0;
};

/// One question that the launcher puts to the user, and what becomes of the answer. All that a command asks for is a
/// value of this type; steps of a chain keep earlier answers in the closures of later ones.
struct PromptStep {
    QString title;
    QString description;             ///< rich text; may be empty
    std::vector<OptionData> options; ///< to choose from; none for a question that is answered by typing
    QString text;                    ///< what the editor holds at first, selected
    QString selected;                ///< the response of the option to begin at; the first one if it is none
    QString noMatch;                 ///< what stands in place of the options when none matches; may be empty
    /// Why an answer is no good, in words for the user; an empty string for a good one. The user is asked again after
    /// a bad one. Without the function every answer is good.
    std::function<QString(QString const& answer)> complaint;
    /// What the line below the title says while the user types; without the function there is no such line. Called
    /// with the empty text when the prompt opens.
    std::function<QString(QString const& text)> feedback;
    /// Acts on a good answer; may ask on with `asker`.
    std::function<void(QString const& answer, PromptAsker& asker)> carryOut;
    /// The prompt has closed, with or without an answer; runs before `carryOut`. Undoes what `feedback` showed.
    std::function<void()> closed;
};

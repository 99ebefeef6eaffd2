#pragma once

#include "app/launcher/PromptStep.h"

#include <QStringList>
#include <gtest/gtest.h>

/// Answers the questions of a chain as the launcher would pass on what a user types. A question that no answer was
/// given for fails the test, and so does an answer to a question that never came.
class ScriptedAsker : public PromptAsker {
public:
    explicit ScriptedAsker(QStringList answers) : answers(std::move(answers)) {}
    ~ScriptedAsker() override { EXPECT_TRUE(answers.isEmpty()) << "not asked: " << qPrintable(answers.join(", ")); }

    void ask(PromptStep step) override {
        titles << step.title;
        if (step.feedback)
            feedbacks << step.feedback({});
        for (;;) {
            if (answers.isEmpty()) {
                ADD_FAILURE() << "unasked: " << qPrintable(step.title);
                return;
            }
            QString const answer = answers.takeFirst();
            if (step.feedback)
                feedbacks << step.feedback(answer);
            QString const complaint = step.complaint ? step.complaint(answer) : QString();
            if (complaint.isEmpty()) {
                if (step.closed)
                    step.closed();
                step.carryOut(answer, *this);
                return;
            }
            complaints << complaint;
        }
    }

    QStringList titles;
    QStringList complaints;
    QStringList feedbacks; ///< of each question, with the empty text first

private:
    QStringList answers;
};

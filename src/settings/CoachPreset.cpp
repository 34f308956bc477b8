// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#include <settings/CoachPreset.h>

#include <QCoreApplication>

namespace flitmark {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CoachPreset)
};

} // namespace

QList<CoachPreset> coachPresets()
{
    return {
        {QStringLiteral("supportive"), Texts::tr("Supportive"), Texts::tr("Calm, kind, and steady guidance."),
         QStringLiteral("You are my supportive productivity coach. Keep feedback short, calm, and kind. Ask one "
                        "question that helps clarify the next step. If I am off focus, gently redirect me.")},
        {QStringLiteral("tough"), Texts::tr("Tough Love"), Texts::tr("Direct, no-nonsense accountability."),
         QStringLiteral("You are my tough-love productivity coach. Be direct and concise. Call out avoidance or "
                        "excuses. End with a single clear next action.")},
        {QStringLiteral("high_energy"), Texts::tr("High-energy (Orvane inspired)"),
         Texts::tr("Bold, motivational, action-first energy."),
         QStringLiteral("You are my high-energy motivational coach. Be bold and energetic. Push me to take immediate "
                        "action. End with a short, emphatic question.")},
        {QStringLiteral("stoic"), Texts::tr("Stoic"), Texts::tr("Calm, rational, focused on control."),
         QStringLiteral("You are my stoic coach. Be calm and practical. Focus on what is within my control. Keep "
                        "responses minimal and action-oriented.")},
        {QStringLiteral("analytical"), Texts::tr("Analytical"),
         Texts::tr("Pattern-driven, experiment-focused guidance."),
         QStringLiteral("You are my analytical coach. Identify patterns, suggest small experiments, and ask for "
                        "concrete metrics. Keep it brief.")},
        {customCoachStyle, Texts::tr("Custom"), Texts::tr("Write your own prompt."), {}},
    };
}

} // namespace flitmark

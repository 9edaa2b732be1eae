// The verbs of a script that need no window: answers to prompts, and checks.
#pragma once

#include <drawing/prompt_backend.h>

#include <QStringList>

bool isAnswerVerb(const QString& verb);
bool isNeutralVerb(const QString& verb);

// The answer that a line gives to a prompt, and what the console echoes. Returns
// what is wrong.
QString makeAnswer(const PromptRequest& request, const QString& verb, const QStringList& words, PromptReply& reply,
                   QString& echo);

// A check of the console, the drawing or a file. Returns what is wrong.
QString doCheckVerb(const QString& verb, const QStringList& words, const QString& console);

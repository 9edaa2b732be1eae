// What a typed line means as the answer to a prompt.
#pragma once

#include <drawing/prompt_backend.h>

// Point typed as "x,y" or "x,y,z", or as "d<a", a distance and an angle in
// degrees; with a leading @ it is relative to `base`.
// False when the text is no point.
NRX_API bool parsePointText(const QString& text, const NcGePoint3d* base, NcGePoint3d& point);

// Reads a typed line: empty is Enter (a string that takes blanks stays empty),
// keywords go by local or global word ("_" forces the global one), ignoring case,
// or by any beginning that fits one word alone; letters that look alike in both
// alphabets are equal where nothing else fits. An entity goes by "handle:2A" or
// by a point that hits it, a selection by several of these, by "all" or by a
// window "x,y x,y". False when the text does not fit the prompt.
NRX_API bool parseAnswer(const PromptRequest& request, const QString& text, PromptReply& reply);

// What to tell a user whose answer does not fit.
NRX_API QString answerHint(const PromptRequest& request, const QString& text);

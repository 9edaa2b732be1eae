// TERVA_DWG_BACKGROUND: a foreign drawing as a quiet ground for the plan. All
// that it holds goes to one layer, with colours by layer, polylines without
// width, and the line types that it showed before.
#pragma once

#include <QString>
#include <functional>

/// Told what is done of how much; false ends the work where it stands.
using WorkProgress = std::function<bool(int done, int total)>;

/// Begins a stretch of work with its title and gives what to tell of it.
using WorkStage = std::function<WorkProgress(const QString& title)>;

/// First the entities of every block, then those of model space. External
/// references ("|" in the name) belong to their own files and are left out.
/// What was done until the user ended the work stays.
void prepareBackground(const QString& layer, const WorkStage& begin);

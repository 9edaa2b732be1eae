// What the dialogue of inserting an element says in each family.
#pragma once

#include "elements/families/families.h"
#include "session/project_session.h"

struct InsertionFamily {
    FamilyKey family;
    Enumerator ProjectSession::*enumerator; ///< the numbering of new names
    // Prompts up to "<"; the value offered and ">" follow. An empty text: not asked.
    QString defaultHeightPrompt; ///< cyclic mode
    QString defaultDepthPrompt;
    QString namePrompt; ///< single mode
    QString heightPrompt;
    QString depthPrompt;
    bool fromCatalog; ///< the construction is chosen first, and the point is asked last in single mode
};

const InsertionFamily& insertionFamily(FamilyKey family);

/// The numbering of new elements of the family.
Enumerator& enumeratorOf(FamilyKey family);

/// A command and the kind that it creates.
struct InsertionCommand {
    QString name;
    int kind;
    bool needsPosition;
};

/// The sixteen commands. The other kinds are never created by a command.
const QVector<InsertionCommand>& insertionCommands();

// Where prompts get their answers and where the console's text goes: a script,
// or the workbench's command line. Commands cannot tell which.
#pragma once

#include <nrx/editor.h>

#include <functional>

// One question of a command.
struct PromptRequest {
    enum Kind { Keyword, Real, Integer, String, Point, Entity, Selection, Color };
    struct Word {
        QString local, global;
    };

    Kind kind = Keyword;
    QString prompt;                  // as the command gave it, line ends included
    std::vector<Word> keywords;      // of the ncedInitGet before, Keyword only
    bool spaces = false;             // String: blanks belong to the answer
    std::optional<NcGePoint3d> base; // Point: in the user coordinate system
    NcCmColor color;                 // Color: what the dialog starts with
    bool trueColor = false;          // Color: whether others than the palette's may be given
    bool allowMeta = true;           // Color: whether by layer and by block may be given
};

// The answer; which field is filled follows the request's kind.
struct PromptReply {
    int status = kPromptCancel; // a NcPromptAnswer
    QString text;               // Keyword: the global word; String
    double real = 0.0;
    int integer = 0;
    NcGePoint3d point; // Point: user coordinates; Entity: where it was picked (user coordinates)
    NcDbObjectId entity;
    NcDbObjectIdArray entities; // Selection
    NcCmColor color;            // Color
};

class NRX_API PromptBackend {
public:
    virtual ~PromptBackend() = default;
    // Returns when the user answered; never throws.
    virtual PromptReply ask(const PromptRequest& request) = 0;
    // Text of the console as the command wrote it, line ends where it put them.
    virtual void print(const QString& text) = 0;
    // The running command has not done what it is for, and said so: a script
    // does not go on as if nothing were.
    virtual void commandFailed(const QString&) { }
};

// The back end in force; null answers every prompt with a cancel and prints to
// standard output. The setter returns the one before.
NRX_API PromptBackend* promptBackend();
NRX_API PromptBackend* setPromptBackend(PromptBackend* backend);

// Entities that follow the point which a prompt asks for, drawn where they would
// come to stand. In force while it lives, for the prompts of one command.
class NRX_API FollowedEntities {
public:
    using Placing = std::function<NcGeMatrix3d(const NcGePoint3d& world)>;
    FollowedEntities(const NcDbObjectIdArray& entities, const Placing& placing);
    ~FollowedEntities();
    FollowedEntities(const FollowedEntities&) = delete;
    FollowedEntities& operator=(const FollowedEntities&) = delete;

    const NcDbObjectIdArray& entities() const { return entities_; }
    NcGeMatrix3d placing(const NcGePoint3d& world) const { return placing_(world); }
    // Null when nothing follows.
    static const FollowedEntities* present();

private:
    NcDbObjectIdArray entities_;
    Placing placing_;
    const FollowedEntities* before_;
};

// Asks for entities, for selection sets without a mode of their own.
NRX_API PromptReply askSelection(const QString& prompt);

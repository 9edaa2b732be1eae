// The host's own commands, for users and scripts. They ask like any command, so
// a script answers them like one.
//
//   NEW template   OPEN path   SAVE   SAVEAS path   CLOSE
//   EXPORT path [Window corner corner] [Size width height] [Paper White|Black]
//   ZOOM [Extents|Center point height|Window corner corner]   REGEN   UCS
//   LAYER [Make name|Current name|On name|Off name|coLor name colour]
//   SPACE [Model|Paper]   MVIEW corner corner centre scale
//   LINE  PLINE  CIRCLE  TEXT   SELECT   SCREENSHOT path
//   U  REDO   ERASE  MOVE  COPY  ROTATE  SCALE  MIRROR  EXPLODE  OFFSET
//   SELECTALL  COPYCLIP  CUTCLIP  PASTECLIP  PASTEORIG   DIST  ID  AREA
//   ERASEGROUP name, with * for any letters: TERVA_HATCH_* erases the maps
#pragma once

#include <nrx/application.h>
#include <nrx/editor.h>

#include <functional>

// Registers them; more than once does no harm.
NRX_API void registerHostCommands();

// The list of commands of each area: a name and what it does.
struct HostCommandRow {
    const char* name;
    void (*run)();
    const char* aliases = ""; // divided by '|'
    int flags = kTransparent; // 0: not while another command runs
};
const std::vector<HostCommandRow>& fileCommands();
const std::vector<HostCommandRow>& viewCommands();
const std::vector<HostCommandRow>& drawCommands();
const std::vector<HostCommandRow>& editCommands();
const std::vector<HostCommandRow>& clipboardCommands();
const std::vector<HostCommandRow>& measureCommands();
const std::vector<HostCommandRow>& layerCommands();
const std::vector<HostCommandRow>& sheetCommands();

// --- what they share

// A line on the console.
void sayLine(const QString& text);
// The same for a command that could not do its work; a script ends there.
void sayFailure(const QString& text);
// Asks for a keyword; empty when the user pressed Enter, null on cancel.
QString askKeyword(const QString& prompt, const QString& keywords);
// False on cancel or Enter.
bool askText(const QString& prompt, QString& text);
bool askPoint(const QString& prompt, NcGePoint3d& world, const NcGePoint3d* base = nullptr);
bool askNumber(const QString& prompt, double& value);
// Appends to the current space; the drawing then owns the entity.
bool appendToSpace(NcDbEntity* entity);
NcDbDatabase* currentDrawing();
// The same without the drawing's present layer and colour.
bool appendAsIs(NcDbEntity* entity);
// What was picked before; else asks. Without what cannot be changed, which is
// told; false when nothing is left.
bool askObjects(NcDbObjectIdArray& ids);
// The picked set of the current document.
NcDbObjectIdArray implied();
// All of the current space that is not erased.
NcDbObjectIdArray livingEntities(const NcDbDatabase& drawing);

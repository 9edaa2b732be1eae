// Prompts, selection, the console and coordinate systems of the current view.
#pragma once

#include "database.h"

#include <QStringList>

// A line on the command console, printf style; %s and %ls take a wide string (wchar_t*).
NRX_API int ncutPrintf(const wchar_t* format, ...);

// Keywords of the next prompt: local words, "_", global words. The answer
// comes back as the global word.
NRX_API int ncedInitGet(int flags, const QString& keywords);
NRX_API int ncedGetKword(const QString& prompt, QString& answer);
NRX_API int ncedGetReal(const QString& prompt, double& answer);
NRX_API int ncedGetInt(const QString& prompt, int& answer);
NRX_API int ncedGetString(bool spaces, const QString& prompt, QString& answer);
// `base` may be null. The answer is in the user coordinate system.
NRX_API int ncedGetPoint(const NcGePoint3d* base, const QString& prompt, NcGePoint3d& answer);
NRX_API int ncedEntSel(const QString& prompt, NcSelectionName& name, NcGePoint3d& picked);
// False when the user closed the dialog; `index` and `color` are start values too.
NRX_API bool ncedSetColorDialog(int& index, bool allowMeta = true);
NRX_API bool ncedSetColorDialogTrueColor(NcCmColor& color);

// Queues a host command with its arguments: "_.zoom", "_.regen".
NRX_API int ncedCommand(const QStringList& words);
NRX_API bool ncedGetVar(const QString& name, QString& value);

// Selection sets. Filters: code 8 a layer name, code 0 a class ("INSERT").
struct NcSelectionFilter {
    int code = 8;
    QString value;
};
class NRX_API NcSelectionSet {
public:
    NcDbObjectIdArray ids;
};
// Mode "X" takes the whole drawing; mode "" asks the user; mode "_I" the
// current pick-first selection. kPromptError when nothing was found.
NRX_API int ncedSSGet(const QString& mode, const std::vector<NcSelectionFilter>& filter, NcSelectionSet& set);
NRX_API int ncedSSLength(const NcSelectionSet& set);
NRX_API int ncedSSName(const NcSelectionSet& set, int index, NcSelectionName& name);
NRX_API int ncedSSAdd(const NcSelectionName& name, NcSelectionSet& set);
NRX_API int ncedSSFree(NcSelectionSet& set);
NRX_API int ncedSSSetFirst(const NcSelectionSet& set);

// The user coordinate system of the active drawing, as a matrix UCS to WCS.
NRX_API NcStatus ncedGetCurrentUCS(NcGeMatrix3d& matrix);
NRX_API NcStatus ncedSetCurrentUCS(const NcGeMatrix3d& matrix);
// false when the transformation fails; `p` then stays as it was.
NRX_API bool ncdbUcs2Wcs(const NcGePoint3d& from, NcGePoint3d& to, bool isVector = false);
NRX_API bool ncdbWcs2Ucs(const NcGePoint3d& from, NcGePoint3d& to, bool isVector = false);
NRX_API NcStatus ncedVports2VportTableRecords();
NRX_API NcStatus ncedVportTableRecords2Vports();
// The layout viewport that is active, or the null id in model space.
NRX_API NcDbObjectId ncedGetCurViewportObjectId();

// Editor events.
class NRX_API NcEditorReactor {
public:
    virtual ~NcEditorReactor() = default;
    virtual void commandWillStart(const QString& /*name*/) { }
    virtual void commandEnded(const QString& /*name*/) { }
};
class NRX_API NcEditorReactor2 : public NcEditorReactor {
public:
    virtual void pickfirstModified() { }
};
class NRX_API NcEditor {
public:
    static NcEditor* instance();
    void addReactor(NcEditorReactor* reactor);
    void removeReactor(NcEditorReactor* reactor);
};
inline NcEditor* NcEditor_instance() { return NcEditor::instance(); }

#pragma once
// A position's drawing in the host: a working copy of what the database stores.

#include <QByteArray>
#include <QString>

class NcApDocument;
class ProjectSession;

/// Where the working copy of a position's drawing lies.
QString positionDrawing(const QString& tempDir, int positionId);

/// A property of the drawing's own record.
struct DrawingProperty {
    QString key;
    QString value;
};

/// Replaces the property or adds it.
void writeDrawingProperty(NcApDocument* document, const DrawingProperty& property);

/// Closes the document of that file name if one is open, and gives its lock back.
void closeDrawing(const QString& path);

/// Tells of an open drawing that was saved and not stored, before it is closed
/// or its position left.
void tellNotStored(int positionId, const QString& path);

/// A new document from the template "Default.dwt", saved under `path`; with
/// the property, unless its key is empty.
void createDrawing(const QString& path, const DrawingProperty& property);

/// Opens the file as the current document and writes the property to it,
/// unless its key is empty. A file that is no drawing is told: no document
/// changes then, and it is false.
bool openDrawing(const QString& path, const DrawingProperty& property);

/// What the database keeps for a position.
struct PositionFile {
    enum State {
        NotRead, ///< the server did not say
        Absent,
        Empty, ///< a record without bytes
        Present,
    };
    State state = NotRead;
    QByteArray bytes;
    QString problem; ///< of NotRead, the server's message
};
PositionFile readPositionFile(const ProjectSession& session, int positionId);

/// Writes the drawing that the database stores for the position to `path`.
/// False when there is none. A stored drawing that cannot be read or has no
/// bytes and a file that cannot be made are told.
bool fetchStoredDrawing(const ProjectSession& session, int positionId, const QString& path);

/// The same for the working copy: what was saved there since it was laid is
/// kept under a dated name. False also when that cannot be done or another
/// program has the copy open; the working copy then stays as it is.
bool layStoredDrawing(const ProjectSession& session, int positionId, const QString& path);
/// createDrawing() in the place of the working copy, kept likewise.
void layNewDrawing(const QString& path, const DrawingProperty& property);

#pragma once
// A position's drawing in the host: a working copy of what the database stores.

#include <QString>

class NcApDocument;
class ProjectSession;

/// A property of the drawing's own record.
struct DrawingProperty {
    QString key;
    QString value;
};

/// Replaces the property or adds it.
void writeDrawingProperty(NcApDocument* document, const DrawingProperty& property);

/// Closes the document of that file name if one is open.
void closeDrawing(const QString& path);

/// A new document from the template "Default.dwt", saved under `path`; with
/// the property, unless its key is empty.
void createDrawing(const QString& path, const DrawingProperty& property);

/// Opens the file as the current document and writes the property to it,
/// unless its key is empty.
void openDrawing(const QString& path, const DrawingProperty& property);

/// Writes the drawing that the database stores for the position to `path`.
/// False when there is none. A stored drawing without content and a file that
/// cannot be made are told.
bool fetchStoredDrawing(const ProjectSession& session, int positionId, const QString& path);

/// The same for the working copy: what was saved there since it was laid is
/// kept under a dated name. False also when that cannot be done; the working
/// copy then stays as it is.
bool layStoredDrawing(const ProjectSession& session, int positionId, const QString& path);
/// createDrawing() in the place of the working copy, kept likewise.
void layNewDrawing(const QString& path, const DrawingProperty& property);

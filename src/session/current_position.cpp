// Choosing the position that the user works in.
#include "session/project_session.h"

#include "base/statement.h"
#include "session/numbering.h"
#include "session/working_drawing.h"

#include <nrx/application.h>

namespace {

/// Which project a drawing belongs to; without a project nothing is written.
DrawingProperty projectProperty(const ProjectSession& session)
{
    if (session.projectId == -1)
        return {};
    return {QStringLiteral("project"), session.projectName};
}

DrawingProperty positionProperty(const ProjectSession& session, int positionId)
{
    if (session.projectId == -1)
        return {};
    return {QStringLiteral("position_id"), QString::number(positionId)};
}

} // namespace

QString ProjectSession::drawingPath(int positionId) const { return positionDrawing(tempDir, positionId); }

bool ProjectSession::setCurrentPosition(int positionId)
{
    if (positionId == -1)
        return leavePosition();
    if (projectId == -1 && checkConnection()) {
        const sql::Result row = run("SELECT project_id FROM projects");
        if (!row.isNull(0, 0))
            projectId = row.toInt(0, 0);
    }
    if (currentPositionId != -1) {
        // Chosen again, it is laid anew, and what becomes of the copy is told there.
        if (positionId != currentPositionId)
            tellNotStored(currentPositionId, drawingPath(currentPositionId));
        closeDrawing(drawingPath(currentPositionId));
    }
    if (checkConnection() && !bringPosition(positionId))
        return false;
    currentPositionId = positionId;
    currentDrawingPath = drawingPath(positionId);
    return true;
}

// The drawing of the position stays open and its path known.
void ProjectSession::leavePositionFields()
{
    if (currentPositionId != -1)
        tellNotStored(currentPositionId, currentDrawingPath);
    currentPositionId = defaultPositionId;
    currentFileId = defaultFileId;
    currentObjectId = -1;
    currentSubobjectId = -1;
    currentPositionName.clear();
    currentSubobjectName.clear();
    currentObjectName.clear();
}

bool ProjectSession::leavePosition()
{
    leavePositionFields();
    if (!checkConnection())
        return false;
    const sql::Result row = run("SELECT project_id, name FROM projects");
    if (row.isTuples()) {
        projectId = row.isNull(0, 0) ? -1 : row.toInt(0, 0);
        projectName = row.getvalue(0, 1);
    }
    return projectId != -1;
}

// False only when the database says that there is no such position.
bool ProjectSession::bringPosition(int positionId)
{
    const sql::Result row = run(compose("SELECT position_id,file_id FROM positions LEFT JOIN positions_files "
                                        "USING (position_id) WHERE position_id=%1",
                                        positionId));
    if (!row.isTuples())
        return true;
    if (row.ntuples() != 1 || row.toInt(0, 0) != positionId)
        return false;
    currentPositionId = positionId;
    currentDrawingPath = drawingPath(positionId);
    closeDrawing(currentDrawingPath);
    if (row.isNull(0, 1)) {
        currentFileId = -1;
        layNewDrawing(currentDrawingPath, projectProperty(*this));
    } else {
        currentFileId = row.toInt(0, 1);
        if (layStoredDrawing(*this, positionId, currentDrawingPath)
            && !openDrawing(currentDrawingPath, projectProperty(*this)))
            closeDrawing(currentDrawingPath);
    }
    writeDrawingProperty(ncDocManagerPtr()->findByFileName(currentDrawingPath), positionProperty(*this, positionId));
    readPositionNames(positionId);
    renumberFamilies(*this, positionId);
    return true;
}

void ProjectSession::readPositionNames(int positionId)
{
    enum Column { ProjectId, Project, ObjectId, Object, SubobjectId, Subobject, PositionId, Position };
    const sql::Result row =
        run(compose("select project_id, name, object_id, object , subobject_id, subobject, "
                    "position_id,position  from projects  left join objects using (project_id) "
                    "left join subobjects using (object_id)  left join positions using (subobject_id)   "
                    "where position_id = %1",
                    positionId));
    if (!row.hasRow())
        return;
    projectId = row.toInt(0, ProjectId);
    projectName = row.getvalue(0, Project);
    currentObjectId = row.toInt(0, ObjectId);
    currentObjectName = row.getvalue(0, Object);
    currentSubobjectId = row.toInt(0, SubobjectId);
    currentSubobjectName = row.getvalue(0, Subobject);
    currentPositionId = row.toInt(0, PositionId);
    currentPositionName = row.getvalue(0, Position);
}

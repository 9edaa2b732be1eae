#pragma once
// The project's tree as a list, each node before those below it, and the
// elements that stand in a node.

#include "elements/families/family_key.h"
#include "reports/templates/report_parameters.h"

struct ReportNode {
    ProjectPart part;
    QString name;
    int depth = 0; ///< 0 for the project
};

QVector<ReportNode> projectNodes();

struct ElementChoice {
    int id = -1;
    QString name;
    double x = 0.0, y = 0.0, z = 0.0;
};

QVector<ElementChoice> elementsIn(const ProjectPart& part, FamilyKey family);

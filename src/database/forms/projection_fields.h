#pragma once
// The two fields in which a project's coordinate system is chosen.

class QBoxLayout;
class QComboBox;
class QPlainTextEdit;
class QString;

struct ProjectionFields {
    QPlainTextEdit* text; ///< "Proj4Text": the PROJ definition
    QComboBox* list;      ///< "ProjectionCombo": choosing an entry replaces the text
};

/// Makes the fields below their label. The list comes from the file delivered
/// beside the module; without it the box is disabled.
ProjectionFields addProjectionFields(QBoxLayout* layout, const QString& moduleDir);

#pragma once
// The two fields in which a project's coordinate system is chosen.

class QLayout;
class QPlainTextEdit;
class QString;

/// The fields below their label: "Proj4Text", the PROJ definition, which is
/// given to `text`, and "ProjectionCombo", an entry of which replaces it. The
/// list comes from the file delivered beside the module; without it the box is
/// disabled.
QLayout* projectionFields(QPlainTextEdit*& text, const QString& moduleDir);

// The project for geographic information systems: asks for a file and writes it.
#pragma once

class QWidget;

void askAndExportToGis(QWidget* parent);

// A look at one measure of a thermal well.
#pragma once

class QWidget;
class TSMeasure;

/// Opens the box "Просмотр" with the measure's profile and waits for its end.
void showProfile(const TSMeasure& measure, QWidget* parent);

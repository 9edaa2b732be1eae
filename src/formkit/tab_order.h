#pragma once
// The order in which Tab goes through a form.

class QWidget;

namespace formkit {

/// As one reads: by rows of the form's layouts, a group, a page or a part after the
/// other, not in the order in which widgets happened to be made. Every layout of the
/// kit does so when it is put into its widget; a form that adds to it later calls it.
void orderTabs(const QWidget& form);

} // namespace formkit

// A library that is no module: it lacks the entry point.
#include <QtGlobal>

extern "C" Q_DECL_EXPORT int nothingOfInterest() { return 0; }

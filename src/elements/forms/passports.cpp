#include "elements/forms/passports.h"

#include "formkit/boxes.h"

namespace {

PassportOpener& opener()
{
    static PassportOpener known;
    return known;
}

} // namespace

void setPassportOpener(PassportOpener open) { opener() = std::move(open); }

void openPassport(FamilyKey family, int elementId, QWidget* parent)
{
    if (opener())
        opener()(family, elementId, parent);
    else
        formkit::inform(parent, QStringLiteral("Эта возможность ещё не построена"));
}

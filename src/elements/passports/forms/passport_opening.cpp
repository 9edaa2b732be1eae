#include "elements/passports/forms/passport_opening.h"

#include "elements/element_block.h"
#include "elements/forms/passports.h"
#include "elements/passports/forms/element_passport.h"
#include "formkit/modal.h"
#include "session/project_session.h"

#include <nrx/double_click.h>

#include <memory>

namespace {

void open(FamilyKey family, int elementId, QWidget* parent)
{
    ElementPassport passport(family, elementId, parent);
    passport.exec();
}

bool hasRow(const Family& family, int elementId)
{
    return session()
        .run(compose("select element_id from %1 where element_id=%2", Identifier(family.elements), elementId))
        .hasRow();
}

class BlockReactor : public NcDoubleClickReactor {
public:
    // A block without a row is left to the host, as everything that is no element.
    bool doubleClicked(NcDbObjectId entity) override
    {
        const ElementBlock block(entity, StateColors());
        const Family* family = block.family();
        if (!family || !block.elementKey() || !session().checkConnection() || !hasRow(*family, block.elementId()))
            return false;
        formkit::OverHost host;
        open(family->key, block.elementId(), host);
        return true;
    }
};

std::unique_ptr<BlockReactor>& reactor()
{
    static std::unique_ptr<BlockReactor> one;
    return one;
}

} // namespace

void installPassports()
{
    setPassportOpener(open);
    if (reactor())
        return;
    reactor() = std::make_unique<BlockReactor>();
    ncedAddDoubleClickReactor(reactor().get());
}

void removePassports()
{
    setPassportOpener({});
    if (reactor())
        ncedRemoveDoubleClickReactor(reactor().get());
    reactor().reset();
}

#include "session/forms/project_props_form.h"

#include "formkit/layout.h"
#include "formkit/widgets.h"
#include "session/forms/project_fields.h"
#include "session/project_session.h"

using namespace formkit;

namespace {

// In the order of the fields.
constexpr QString ProjectSession::*values[] = {&ProjectSession::projectName, &ProjectSession::projectCode,
                                               &ProjectSession::projectOwner, &ProjectSession::projectLocation};

} // namespace

ProjectPropsForm::ProjectPropsForm(QWidget* parent) : QWidget(parent)
{
    nameForm(this, "ProjectPropsForm", QString());
    layOut(this).column({
        fields_ = new FieldPane(projectDataFields()),
        row({stretch(), button("btnApply", "Применить", this, &ProjectPropsForm::btnApplyClick)}),
        stretch(),
    });
    putCaptionsAbove(*fields_);
    refresh();
}

void ProjectPropsForm::refresh()
{
    QStringList shown;
    for (QString ProjectSession::*value : values)
        shown << session().*value;
    fields_->showRow(shown);
}

void ProjectPropsForm::btnApplyClick()
{
    const QStringList entered = fields_->row();
    int field = 0;
    for (QString ProjectSession::*value : values)
        session().*value = entered[field++];
    session().saveProjectRow();
    session().saveProject();
}

#pragma once
// A working drawing for tests, with block definitions made straight from what
// each kind carries.

#include "elements/families/kind_defaults.h"
#include "elements/families/kinds.h"

#include <drawing/audit.h>
#include <drawing/host_access.h>
#include <nrx/editor.h>

#include <QVector>
#include <memory>

class ElementDrawing {
public:
    ElementDrawing() : previous_(ncdbHostApplicationServices()->workingDatabase())
    {
        ncdbHostApplicationServices()->setWorkingDatabase(&database_);
    }
    ~ElementDrawing() { ncdbHostApplicationServices()->setWorkingDatabase(previous_); }

    NcDbDatabase& database() { return database_; }

    /// A definition with these attributes and dynamic properties.
    static void addDefinition(NcDbDatabase& database, const QString& name, const QStringList& tags,
                              const std::vector<DynamicParameter>& parameters = {})
    {
        auto record = std::make_unique<NcDbBlockTableRecord>();
        NcDbBlockTableRecord& block = *record;
        auto* table = HostAccess::objectAs<NcDbBlockTable>(database.blockTableId());
        HostAccess::addRecord(*table, std::move(record), name);
        auto circle = std::make_unique<NcDbCircle>(NcGePoint3d(), NcGeVector3d(0, 0, 1), 1.0);
        circle->setColorIndex(0);
        HostAccess::addEntity(block, std::move(circle));
        double line = 0.0;
        for (const QString& tag : tags) {
            auto field = std::make_unique<NcDbAttributeDefinition>();
            field->setTag(tag);
            field->setPosition({2.0, line, 0.0});
            field->setHeight(1.0);
            field->setInvisible(tag == "element_id");
            HostAccess::addEntity(block, std::move(field));
            line -= 1.5;
        }
        if (!parameters.empty()) {
            auto dynamic = std::make_unique<DynamicDefinition>();
            dynamic->parameters = parameters;
            HostAccess::dynamic(block) = std::move(dynamic);
        }
    }

    /// The dynamic properties that blocks of the kind have.
    static std::vector<DynamicParameter> parametersOf(int kind)
    {
        const KindDefaults defaults = defaultsOfKind(kind);
        std::vector<DynamicParameter> parameters;
        for (auto it = defaults.dynProps.begin(); it != defaults.dynProps.end(); ++it) {
            DynamicParameter parameter;
            parameter.name = it.key();
            parameter.defaultValue = it.value();
            parameter.allowed = defaults.allowedValues.value(it.key());
            parameter.type = parameter.allowed.isEmpty() ? 40 : it.value() == "0" ? 70 : 1;
            parameters.push_back(parameter);
        }
        // A property that no kind knows, so that such a one is met too.
        parameters.push_back({"Чужое", 90, "3", {}});
        return parameters;
    }

    static void addKind(NcDbDatabase& database, int kind)
    {
        addDefinition(database, kinds()[size_t(kind)].blockName, defaultsOfKind(kind).attributes.keys(),
                      parametersOf(kind));
    }
    void addKind(int kind) { addKind(database_, kind); }
    void addAllKinds()
    {
        for (int kind = 0; kind < kindCount; ++kind) {
            if (!kinds()[size_t(kind)].blockName.isEmpty())
                addKind(kind);
        }
    }

    /// All block references of model space, in the order of creation.
    QVector<NcDbObjectId> references()
    {
        QVector<NcDbObjectId> found;
        auto* space = HostAccess::objectAs<NcDbBlockTableRecord>(HostAccess::data(database_).modelSpace);
        for (const NcDbObjectId& id : HostAccess::entities(*space)) {
            if (HostAccess::isLiving(id) && HostAccess::objectAs<NcDbBlockReference>(id))
                found.append(id);
        }
        return found;
    }
    static const NcDbBlockReference& reference(NcDbObjectId id)
    {
        return *HostAccess::objectAs<NcDbBlockReference>(id);
    }
    static TextMap attributes(NcDbObjectId id)
    {
        TextMap texts;
        for (const NcDbObjectId& attribute : HostAccess::attributes(reference(id))) {
            const auto* found = HostAccess::objectAs<NcDbAttribute>(attribute);
            texts.insert(found->tag(), found->textString());
        }
        return texts;
    }
    static QString dynProp(NcDbObjectId id, const QString& name) { return dynamicValue(reference(id), name); }

    /// What is wrong with the drawing, as text; also an object left open.
    QStringList faults()
    {
        QStringList texts;
        for (const AuditFinding& finding : audit(database_))
            texts.append(finding.text);
        if (HostAccess::openObjectCount() != 0)
            texts.append(QString("open objects: %1").arg(HostAccess::openObjectCount()));
        return texts;
    }

private:
    NcDbDatabase database_;
    NcDbDatabase* previous_;
};

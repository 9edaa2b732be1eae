// A drawing file taken apart into sections and records, before anything of it
// is understood; and what of it was not understood, to be written back.
#pragma once

#include "group.h"

#include <utility>

struct DxfHeaderVariable {
    QString name; // with its dollar sign
    DxfGroups groups;
};

struct DxfTable {
    QString name;
    DxfGroups head;
    DxfRecords records;
};

// An entity with the records that follow it as its parts: vertices, attributes
// and the closing SEQEND.
struct DxfEntity {
    DxfRecord main;
    DxfRecords parts;
};
using DxfEntities = std::vector<DxfEntity>;

struct DxfBlock {
    DxfRecord begin, end;
    DxfEntities entities;
};

struct DxfSection {
    QString name;
    DxfGroups groups; // between the group of the name and ENDSEC
};

struct DxfDocument {
    std::vector<DxfHeaderVariable> header;
    DxfRecords classes;
    std::vector<DxfTable> tables;
    std::vector<DxfBlock> blocks;
    DxfEntities entities;
    DxfRecords objects;
    std::vector<DxfSection> others;

    const DxfHeaderVariable* headerVariable(const QString& name) const;
    const DxfTable* table(const QString& name) const;
    // "AC1009" when the file does not tell.
    QString version() const;
};

// False when the groups do not make up sections.
bool readDocument(const DxfGroups& groups, DxfDocument& document);

// Makes a block definition of a drawing from its statements.
#pragma once

#include "symbol_source.h"

#include <drawing/host_access.h>

class BlockBuilder {
public:
    BlockBuilder(NcDbDatabase& database, NcDbBlockTableRecord& block);
    // False with a message that names the line.
    bool build(const SymbolSource& symbol, QString& message);

private:
    // A statement's words after its verb, as numbers; false when one is none.
    bool numbers(const QStringList& words, int from, int count, std::vector<double>& values) const;
    bool take(const QStringList& words);
    bool takeParameter(const QStringList& words);
    bool takeWith(const QStringList& words);
    bool takeShape(const QStringList& words);
    bool takeChain(const QStringList& words);
    bool takeText(const QStringList& words);
    bool takeAttribute(const QStringList& words);
    void add(std::unique_ptr<NcDbEntity> entity);

    NcDbDatabase& database_;
    NcDbBlockTableRecord& block_;
    DynamicDefinition definition_;
    std::vector<DynamicBinding> open_; // the innermost last
    NcGePoint2d origin_;
};

#include "reader_parts.h"

namespace {

class HandleCheck {
public:
    void look(const DxfRecord& record)
    {
        const quint64 handle = recordHandle(record);
        missing_ = missing_ || handle == 0 || seen_.contains(handle);
        seen_.insert(handle);
        greatest_ = std::max(greatest_, handle);
    }
    void look(const DxfRecords& records)
    {
        for (const DxfRecord& record : records)
            look(record);
    }
    void look(const DxfEntities& entities)
    {
        for (const DxfEntity& entity : entities) {
            look(entity.main);
            look(entity.parts);
        }
    }
    bool missing() const { return missing_; }
    quint64 greatest() const { return greatest_; }

private:
    QSet<quint64> seen_;
    bool missing_ = false;
    quint64 greatest_ = 0;
};

} // namespace

bool needsNewHandles(const DxfDocument& document, quint64& greatest)
{
    HandleCheck check;
    for (const DxfTable& table : document.tables) {
        check.look({QStringLiteral("TABLE"), table.head});
        check.look(table.records);
    }
    for (const DxfBlock& block : document.blocks) {
        check.look(block.begin);
        check.look(block.entities);
        check.look(block.end);
    }
    check.look(document.entities);
    check.look(document.objects);
    greatest = check.greatest();
    // Handles of what is made for every drawing must be free too.
    return check.missing() || !document.table(QStringLiteral("BLOCK_RECORD")) || document.objects.empty();
}

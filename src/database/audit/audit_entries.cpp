#include "database/audit/audit_entries.h"

#include <cstring>

int AuditEntries::numberOf(const QByteArray& text)
{
    const auto found = numbers_.constFind(text);
    if (found != numbers_.constEnd())
        return *found;
    const int number = known_.size();
    known_.append(QString::fromUtf8(text));
    numbers_.insert(text, number);
    return number;
}

void AuditEntries::add(const Texts& texts)
{
    good_ = good_ && (file_.isOpen() || file_.open(QIODevice::ReadWrite));
    Row row;
    row.offset = written_;
    for (int column = 0; column < kRepeating; ++column)
        row.known[size_t(column)] = numberOf(texts[size_t(column)]);
    for (int column = kRepeating; column < ColumnCount; ++column) {
        const QByteArray& text = texts[size_t(column)];
        row.lengths[size_t(column - kRepeating)] = text.size();
        good_ = good_ && file_.write(text) == text.size();
        written_ += text.size();
    }
    rows_.append(row);
}

bool AuditEntries::finish()
{
    if (written_ == 0)
        return good_;
    if (!good_ || !file_.flush() || file_.size() != written_)
        return false;
    texts_ = reinterpret_cast<const char*>(file_.map(0, written_));
    return texts_ != nullptr;
}

QByteArray AuditEntries::bytes(int row, Column column) const
{
    const Row& entry = rows_[row];
    qint64 offset = entry.offset;
    for (int before = kRepeating; before < column; ++before)
        offset += entry.lengths[size_t(before - kRepeating)];
    const int length = entry.lengths[size_t(column - kRepeating)];
    return length > 0 && texts_ ? QByteArray::fromRawData(texts_ + offset, length) : QByteArray();
}

QString AuditEntries::text(int row, Column column) const
{
    if (column < kRepeating)
        return known_[number(row, column)];
    return QString::fromUtf8(bytes(row, column));
}

int AuditEntries::compare(Column column, int row, int other) const
{
    if (column >= kRepeating) {
        const QByteArray one = bytes(row, column);
        const QByteArray two = bytes(other, column);
        const int order = std::memcmp(one.constData(), two.constData(), size_t(qMin(one.size(), two.size())));
        return order != 0 ? order : one.size() - two.size();
    }
    const int one = number(row, column);
    const int two = number(other, column);
    return one == two ? 0 : known_[one].compare(known_[two]);
}

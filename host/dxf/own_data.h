// Extension data that this system adds where the format has no word of its own.
// One record's data are entries of a keyword and values:
//   1001 TERVA   { 1000 keyword  1002 {  values  1002 } }...
#pragma once

#include "group.h"

#include <map>

const char* ownApplication();

// The values of one entry, read in the order in which they were written.
class OwnValues {
public:
    void addText(const QString& text); // of any length
    void addReal(double value);
    void addInteger(qint64 value);

    bool atEnd() const { return at_ >= groups_.size(); }
    // Past the end or of another type: empty and 0.
    QString text();
    double real();
    int integer();

    const DxfGroups& groups() const { return groups_; }
    void append(const DxfGroup& group) { groups_.push_back(group); }

private:
    const DxfGroup* next(int code);

    DxfGroups groups_;
    size_t at_ = 0;
};

class OwnData {
public:
    OwnData() = default;
    // From extension data without the group of code 1001; what is damaged is passed over.
    explicit OwnData(const DxfGroups& xdata);

    bool has(const QString& keyword) const { return entries_.count(keyword) > 0; }
    // A copy, from its first value.
    OwnValues values(const QString& keyword) const;
    OwnValues& entry(const QString& keyword) { return entries_[keyword]; }
    bool isEmpty() const { return entries_.empty(); }
    // Without the group of code 1001.
    DxfGroups groups() const;

private:
    std::map<QString, OwnValues> entries_;
};

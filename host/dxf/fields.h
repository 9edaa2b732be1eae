// Reading one record: groups are taken out by code, and what nobody took can
// be written back later.
#pragma once

#include "group.h"

#include <nrx/geometry.h>

// What was not understood of a record, by the place where it stood.
struct DxfRest {
    struct Body {
        QString subclass;
        DxfGroups groups;
    };
    DxfGroups head;           // before the first subclass: control groups and the like
    std::vector<Body> bodies; // by subclass, in the order of the file
    DxfGroups xdata;          // of other programs

    bool isEmpty() const { return head.empty() && bodies.empty() && xdata.empty(); }
    const DxfGroups* body(const QString& subclass) const;
    void add(const QString& subclass, const DxfGroups& groups);
};

class DxfFields {
public:
    explicit DxfFields(const DxfGroups& groups);

    // Limits what follows to one subclass; false, and no limit, when the record
    // has no such part (files before R13 have none at all).
    bool enter(const char* subclass);
    // Limits what follows to the groups before the first subclass.
    void enterHead();
    bool hasSubclasses() const { return parts_.size() > 1; }

    bool has(int code) const { return find(code) >= 0; }
    // Each takes the first group of the code that is still there.
    QString text(int code, const QString& fallback = {}); // control characters decoded
    QString word(int code, const QString& fallback = {}); // trimmed
    double real(int code, double fallback = 0.0);
    int integer(int code, int fallback = 0);
    quint64 handle(int code);
    // Bits of a group of which only those of `mask` are understood; the group is
    // left to be kept when it has others.
    int flags(int code, int mask);
    // Takes the group if its value is the one that is written anyway.
    void drop(int code, double plain);
    void drop(int code, const QString& plain);
    // Codes code, code + 10 and code + 20.
    NcGePoint3d point(int code, const NcGePoint3d& fallback = {});
    NcGeVector3d vector(int code, const NcGeVector3d& fallback);
    // Takes every group of the code, values as they stand.
    std::vector<QString> values(int code);
    // Takes the groups of the present part, in order, from the first group of
    // code `first` on, up to a group whose code `belongs` refuses.
    DxfGroups sequence(int first, bool (*belongs)(int code));
    // Takes all groups of the present part.
    DxfGroups all();
    // Takes a control group, "{NAME" to "}", without these two.
    DxfGroups control(const QString& name);
    // Takes the extended data of one program, without its name.
    DxfGroups xdata(const QString& application);

    // All that was not taken; on demand with subclasses of which nothing is left.
    DxfRest rest(bool withEmpty = false) const;

private:
    enum Kind { kPlain, kControl, kEmbedded, kXdata };
    struct Item {
        DxfGroup group;
        Kind kind;
        bool taken;
    };
    struct Part {
        QString subclass;
        int from, to;
    };

    void split(const DxfGroups& groups);
    int find(int code) const;
    const QString* take(int code);

    std::vector<Item> items_;
    std::vector<Part> parts_; // the first one is the head
    int from_ = 0, to_ = 0;
};

double realOf(const QString& text, double fallback = 0.0);
int integerOf(const QString& text, int fallback = 0);

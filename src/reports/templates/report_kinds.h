#pragma once
// The nine kinds of document as data: what each is called, which parameters it
// asks for, and the vocabulary that its templates may be filled with.

#include <QString>
#include <array>
#include <vector>

struct ReportVariable {
    enum Type {
        Text = 0,
        Table = 1,
        Picture = 2,
        Separator = 3, ///< draws a line in the list of variables
    };
    QString name;
    QString caption;
    Type type = Text;
};

/// Which parameters a document needs: bits of ReportKind::conditions.
namespace condition {
constexpr quint32 elements = 1;
constexpr quint32 folder = 2;
constexpr quint32 cycles = 4;
constexpr quint32 temperatureMap = 8;
constexpr quint32 deformationMap = 16;
constexpr quint32 temperatureDifferenceMap = 32;
constexpr quint32 projectPart = 64;
constexpr quint32 singleCycle = 128;
constexpr quint32 positions = 256;
constexpr quint32 defectsOnly = 512;
} // namespace condition

enum class ReportKey {
    Common,
    WellPassport,
    Deformations,
    Temperatures,
    TemperatureDifference,
    Inspections,
    ElementLists,
    PositionState,
    PositionSummary,
};
constexpr int reportKindCount = 9;

struct ReportKind {
    ReportKey key;
    QString documentKey; ///< in the description of a template
    QString caption;
    quint32 conditions;
    int group;                             ///< kept with the kind, read by nothing
    std::vector<ReportVariable> variables; ///< beside those that all kinds share

    bool asks(quint32 bit) const { return (conditions & bit) != 0; }
};

/// In the order of ReportKey, which is that of the generator's list.
const std::array<ReportKind, reportKindCount>& reportKinds();
const ReportKind& reportKind(ReportKey key);

/// The seven variables of every kind.
const std::vector<ReportVariable>& commonVariables();

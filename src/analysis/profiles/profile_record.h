// A profile as the database keeps it: its row, and the elements along its line.
#pragma once

#include "analysis/profiles/line_elements.h"
#include "analysis/profiles/section_view.h"

/// What the two kinds of stored profiles differ in. Statements hold their
/// values by markers in the order that profile_record.cpp tells.
struct ProfileFamily {
    const char* read;
    const char* points; ///< the elements of a profile in the order of its line
    const char* exists;
    const char* remove;
    const char* insert;
    const char* update;
    const char* insertPoints;
    const char* removePoints;
    const char* line;     ///< the geometry as text
    const char* list;     ///< id and name of a position's profiles
    const char* elements; ///< all that could stand along a line
    bool hasView;         ///< scales and pickets are kept
};
const ProfileFamily& temperatureProfiles();
const ProfileFamily& deformationProfiles();

struct ProfileRecord {
    int id = -1; ///< of the row; -1 until it is stored
    int positionId = -1;
    QString name;
    SectionView view; ///< of a temperature profile
    QString lineText; ///< "x y" pairs
    std::vector<LineElement> points;
};

/// The row and its elements. False when there is no such row or the server
/// refuses. Elements that are no longer in the base are left out; `lost` counts them.
bool loadProfile(const ProfileFamily& family, int id, ProfileRecord& record, int* lost = nullptr);

/// Updates the row where the position has it, else inserts one and tells its
/// id. False with the server's words when it refuses; a new row without its
/// elements is taken back.
bool storeProfile(const ProfileFamily& family, ProfileRecord& record, QString* problem);

/// The first free name of the kind "Профиль 3" at the position.
QString presetName(const ProfileFamily& family, int positionId);

struct NamedProfile {
    int id = -1;
    QString name;
};
std::vector<NamedProfile> positionProfiles(const ProfileFamily& family, int positionId);

/// The elements that could stand along the line: those in its box, of the
/// position or, without one, of the whole base. False when the server refuses.
bool loadLineElements(const ProfileFamily& family, const ProfileLine& line, double tolerance,
                      std::optional<int> positionId, std::vector<LineElement>& elements);

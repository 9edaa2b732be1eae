// A temperature profile out of two lines of a file: depths in the header,
// temperatures below them.
#pragma once

#include "elements/measures/temperature_log.h"
#include "exchange/reading_loss.h"

#include <QChar>
#include <QStringList>

enum ProfileCode {
    profileOk = 0,
    profileBad = 3,     ///< a cell that is no number, or no cells at all
    profileTooLong = 4, ///< more temperatures than depths
};

/// Which cells of a line belong to the profile.
struct ProfileColumns {
    int first = 0; ///< the first depth
    int tail = 0;  ///< cells left off at the right
};

/// Reads depths. An empty vector gets a pair (depth, infinity) a cell, empty
/// cells being passed over; in one that holds pairs the depths are replaced in
/// place, and the first cell without a number ends it. Signs are not read:
/// depths go down. `losses` takes a text for each number that lost a part.
int readDepths(QStringList cells, TemperatureProfile& profile, QStringList* losses = nullptr);

/// Puts the temperatures into the pairs, cell by cell. Cells without a number
/// are passed over where they are empty.
int readTemperatures(QStringList cells, TemperatureProfile& profile, QStringList* losses = nullptr);

/// The depths of a header line, read once for all the lines below it.
class ProfileReader {
public:
    ProfileReader() = default;
    /// Without a separator (a null sign) a line is one cell.
    ProfileReader(const QString& headerLine, QChar separator, ProfileColumns columns);

    /// What stands before a failure stays; pairs without a temperature are left
    /// out in any case. `losses` takes a text for each number of either line that
    /// lost a part.
    int read(const QString& dataLine, TemperatureProfile& profile, QStringList* losses = nullptr) const;

private:
    QChar separator_;
    ProfileColumns columns_;
    int headerCode_ = profileBad;
    TemperatureProfile depths_;
    QStringList depthLosses_;
};

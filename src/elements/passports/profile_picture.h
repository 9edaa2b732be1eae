#pragma once
// The profiles of chosen measures of a thermal well by elevation, with the
// limits of its position and, if wanted, the ground.

#include "elements/passports/passport_record.h"
#include "elements/passports/well_ground.h"

#include <QPixmap>

struct ProfileWishes {
    QVector<int> measures; ///< ids, in the order in which they are drawn
    bool withGround = false;
    bool withKey = true;
};

class ProfilePicture {
public:
    explicit ProfilePicture(const PassportRecord& record) : record_(record) { }

    /// The limits of the position and the layers of the well.
    void readGround();
    QPixmap render(const ProfileWishes& wishes, const QSize& size, double ratio = 1.0) const;

private:
    const PassportRecord& record_;
    TemperatureLimits limits_;
    QVector<GeologyLayer> layers_;
};

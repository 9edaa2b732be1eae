// The names of the seven families, by which tables are asked.
#pragma once

enum class FamilyKey {
    Dm,  ///< deformation marks
    Ts,  ///< thermal wells
    Rp,  ///< benchmarks
    Ggs, ///< hydrogeological wells
    Igs, ///< engineering-geological wells
    Tss, ///< snow survey points
    Tsg, ///< thermostabilisers
};
constexpr int familyCount = 7;

/// Of the six families that carry measures: all but the engineering-geological wells.
constexpr int measuredFamilyCount = 6;

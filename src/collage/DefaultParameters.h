#pragma once

#include "collage/CollageSettings.h"

class UserDefaults;
class VXMediaInfoItem;

/// The default parameters: ten keys of the user defaults store from which a new movie's collage starts.
namespace DefaultParameters {

/// The settings of a newly probed movie. Every key is read afresh; an absent one counts as 0, not as the initial value
/// in CollageSettings.
CollageSettings settingsOfNewMovie(const UserDefaults &defaults, const VXMediaInfoItem &movie);

} // namespace DefaultParameters

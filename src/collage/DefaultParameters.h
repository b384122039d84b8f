#pragma once

#include "collage/CollageSettings.h"

class UserDefaults;
class VXMediaInfoItem;
struct CollageForm;

/// The default parameters: ten keys of the user defaults store from which a new movie's collage starts.
namespace DefaultParameters {

/// The settings of a newly probed movie. Every key is read afresh; an absent one counts as 0, not as the initial value
/// in CollageSettings.
CollageSettings settingsOfNewMovie(const UserDefaults &defaults, const VXMediaInfoItem &movie);

/// Makes what stands in the editor the default of movies that are loaded from now on, and writes it to disk.
void store(UserDefaults &defaults, const CollageForm &form);

} // namespace DefaultParameters

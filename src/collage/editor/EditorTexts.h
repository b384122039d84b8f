#pragma once

#include <QString>

class CollageLayout;

/// What the editor tells of the collage and of what its buttons will do.
namespace EditorTexts {

/// "948 × 504 pixels, 0.48 megapixels"; of one that cannot be made, that it is too large or has no tiles' room.
QString collageSize(const CollageLayout &layout);

/// Which stretch of the movie Done will store, in seconds.
QString rangeOfDone(double start, double end);

/// "Movie 2 of 8"; counts from 1.
QString placeInList(int number, int count);

/// That two of the choices wait for Done.
QString waitsForDone();

} // namespace EditorTexts

#pragma once

#include <QImage>

/// What a picture is reduced to before it is judged: less than grain and the noise of coding can be seen at.
inline constexpr QSize judgedSize(160, 90);

/// Whether the picture is of one colour, or as good as: the standard deviation of its luma, reduced to judgedSize, is
/// below 4 of 255. A few letters on black have more. False for a null picture.
bool isBlank(const QImage &picture);

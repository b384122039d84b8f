#pragma once

#include "Shared/PictureOptions.h"
#include "media/PictureTraits.h"

#include <QSize>
#include <QString>

/// What pictures go through so that they look as the options demand: the same for the ffmpeg tool and for those that
/// are decoded in this process.
namespace PictureFilter {

/// A chain of FFmpeg's filters, as after the tool's -vf; empty when the movie needs none. What is dear is done at
/// `size`, that of the picture on the collage, or at the picture's own when it is empty.
QString chain(const PictureOptions &options, const PictureTraits &traits, QSize size);

} // namespace PictureFilter

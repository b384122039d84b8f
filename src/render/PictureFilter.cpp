#include "render/PictureFilter.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// The brightness of white paper in a movie with a high range, which becomes white on the screen but for what the curve
// needs above it, and the one above which all is white; candela per square metre. Most movies are made for the latter.
constexpr double paperWhite = 203.0;
constexpr double brightest = 1000.0;

/// Frames that are not flagged pass unchanged. The filter works from a second frame on, which the last one has not.
QString deinterlacing()
{
    return u"tpad=stop=1:stop_mode=clone,bwdif=mode=send_frame:deint=interlaced"_s;
}

/// Scaled as the painter would do it, the mean of the pixels that become one.
QString scaling(QSize size)
{
    return u"scale=%1:%2:flags=area+accurate_rnd+full_chroma_int"_s.arg(size.width()).arg(size.height());
}

/// To linear light in the screen's primaries, a curve that leaves dark and middle tones as they are, and back.
QString toneMapping(const PictureTraits::HighRange &colors)
{
    const QString toLight = u"zscale=transferin=%1:primariesin=%2:matrixin=%3:transfer=linear:primaries=709:matrix=gbr:"
                            "range=full:npl=%4"_s.arg(colors.transfer)
                                .arg(colors.primaries)
                                .arg(colors.matrix)
                                .arg(paperWhite);
    return u"format=yuv444p16|gbrp16,%1,format=gbrpf32,tonemap=mobius:desat=0:peak=%2,zscale=transfer=709,format=gbrp"_s
        .arg(toLight)
        .arg(brightest / paperWhite);
}

} // namespace

QString PictureFilter::chain(const PictureOptions &options, const PictureTraits &traits, QSize size)
{
    QStringList filters;
    if (options.deinterlace && traits.mayBeInterlaced) {
        filters += deinterlacing();
    }
    if (options.toneMap && traits.highRange) {
        if (!size.isEmpty()) {
            filters += scaling(size);
        }
        filters += toneMapping(*traits.highRange);
    }
    return filters.join(u',');
}

#include "online/SupportedFormats.h"

#include "online/VXConfigManager.h"

using namespace Qt::StringLiterals;

QStringList GlobalFun::getSupportedFmts(bool experimental)
{
    QStringList formats = {u"wmv"_s,  u"rm"_s,  u"mpg"_s, u"ts"_s,   u"avi"_s, u"mkv"_s, u"mov"_s, u"flv"_s, u"mp4"_s,
                           u"rmvb"_s, u"vob"_s, u"asf"_s, u"mpeg"_s, u"3gp"_s, u"f4v"_s, u"nsv"_s, u"swf"_s};
    if (experimental) {
        return formats;
    }
    for (const QString &format : {u"vob"_s, u"m4v"_s, u"m4r"_s, u"drm"_s}) {
        formats.removeAll(format);
    }
    return formats;
}

QStringList GlobalFun::getSupportedFmts(const VXConfigManager &config)
{
    return getSupportedFmts(config.experimental());
}

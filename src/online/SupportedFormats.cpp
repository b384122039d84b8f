#include "online/SupportedFormats.h"

#include "online/VXConfigManager.h"

QStringList GlobalFun::getSupportedFmts(bool experimental)
{
    QStringList formats = {QStringLiteral("wmv"),  QStringLiteral("rm"),   QStringLiteral("mpg"), QStringLiteral("ts"),
                           QStringLiteral("avi"),  QStringLiteral("mkv"),  QStringLiteral("mov"), QStringLiteral("flv"),
                           QStringLiteral("mp4"),  QStringLiteral("rmvb"), QStringLiteral("vob"), QStringLiteral("asf"),
                           QStringLiteral("mpeg"), QStringLiteral("3gp"),  QStringLiteral("f4v"), QStringLiteral("nsv"),
                           QStringLiteral("swf")};
    if (experimental)
        return formats;
    for (const QString &format :
         {QStringLiteral("vob"), QStringLiteral("m4v"), QStringLiteral("m4r"), QStringLiteral("drm")})
        formats.removeAll(format);
    return formats;
}

QStringList GlobalFun::getSupportedFmts(const VXConfigManager &config)
{
    return getSupportedFmts(config.experimental());
}

#include "Shared/UrlText.h"

#include <QUrl>

QString GlobalFun::encodedURLParameterString(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "&;"));
}

#include "platform/store/ColorArchive.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString ColorArchive::archive(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

std::optional<QColor> ColorArchive::unarchive(QStringView text)
{
    static const QRegularExpression hexadecimal(u"^#([0-9A-Fa-f]{2})?[0-9A-Fa-f]{6}$"_s);
    const QStringView written = text.trimmed();
    return hexadecimal.match(written.toString()).hasMatch() ? std::optional(QColor(written)) : std::nullopt;
}

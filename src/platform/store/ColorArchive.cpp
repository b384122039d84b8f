#include "platform/store/ColorArchive.h"

#include "platform/store/UserDefaults.h"

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

QColor ColorArchive::storedColor(const UserDefaults &defaults, QAnyStringView key, const QColor &fallback)
{
    return unarchive(defaults.textValue(key)).value_or(fallback);
}

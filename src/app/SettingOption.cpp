#include "app/SettingOption.h"

#include "platform/ColorArchive.h"
#include "platform/PreferenceKeys.h"

#include <QRegularExpression>

namespace {

using PreferenceKeys::Kind;

/// The value of that kind that the text stands for; an invalid QVariant when it stands for none.
QVariant valueFrom(const QString &text, Kind kind)
{
    switch (kind) {
    case Kind::Boolean: {
        static const QRegularExpression truth(QStringLiteral("^(true|yes|false|no|[0-9]+)$"),
                                              QRegularExpression::CaseInsensitiveOption);
        return truth.match(text).hasMatch() ? QVariant(text) : QVariant();
    }
    case Kind::Integer: {
        bool isNumber = false;
        text.toDouble(&isNumber);
        return isNumber ? QVariant(text) : QVariant();
    }
    case Kind::Color: {
        static const QRegularExpression hexadecimal(QStringLiteral("^#([0-9A-Fa-f]{2})?[0-9A-Fa-f]{6}$"));
        return hexadecimal.match(text).hasMatch() ? QVariant(ColorArchive::archive(QColor(text))) : QVariant();
    }
    case Kind::Text:
        return text;
    case Kind::Array:
        break;
    }
    return {};
}

QString expectation(Kind kind)
{
    switch (kind) {
    case Kind::Boolean:
        return QStringLiteral("takes true or false");
    case Kind::Integer:
        return QStringLiteral("takes a number");
    case Kind::Color:
        return QStringLiteral("takes a colour, #rrggbb or #aarrggbb");
    default:
        return QStringLiteral("cannot be set here");
    }
}

} // namespace

SettingOption SettingOption::parse(const QString &text, QString &problem)
{
    const qsizetype separator = text.indexOf(u'=');
    const QString key = text.left(separator);
    const std::optional<Kind> kind = PreferenceKeys::kindOf(key);
    if (separator < 0) {
        problem = QStringLiteral("--set takes KEY=VALUE, not \"%1\"").arg(text);
    } else if (!kind) {
        problem = QStringLiteral("there is no setting named \"%1\"").arg(key);
    } else if (const QVariant value = valueFrom(text.mid(separator + 1), *kind); value.isValid()) {
        return {key, value};
    } else {
        problem = QStringLiteral("--set %1 %2").arg(key, expectation(*kind));
    }
    return {};
}

#include "app/command/SettingOption.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/ColorArchive.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

using PreferenceKeys::Kind;

/// The value of that kind that the text stands for; an invalid QVariant when it stands for none.
QVariant valueFrom(const QString &text, Kind kind)
{
    switch (kind) {
    case Kind::Boolean: {
        static const QRegularExpression truth(u"^(true|yes|false|no|[0-9]+)$"_s,
                                              QRegularExpression::CaseInsensitiveOption);
        return truth.match(text).hasMatch() ? QVariant(text) : QVariant();
    }
    case Kind::Integer: {
        bool isNumber = false;
        text.toDouble(&isNumber);
        return isNumber ? QVariant(text) : QVariant();
    }
    case Kind::Color:
        return ColorArchive::unarchive(text) ? QVariant(text) : QVariant();
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
        return u"takes true or false"_s;
    case Kind::Integer:
        return u"takes a number"_s;
    case Kind::Color:
        return u"takes a colour, #rrggbb or #aarrggbb"_s;
    default:
        return u"cannot be set here"_s;
    }
}

} // namespace

Result<SettingOption> SettingOption::parse(const QString &text)
{
    const qsizetype separator = text.indexOf(u'=');
    const QString key = text.left(separator);
    const std::optional<Kind> kind = PreferenceKeys::kindOf(key);
    if (separator < 0) {
        return failure(u"--set takes KEY=VALUE, not \"%1\""_s.arg(text));
    }
    if (!kind) {
        return failure(u"there is no setting named \"%1\""_s.arg(key));
    }
    const QVariant value = valueFrom(text.mid(separator + 1), *kind);
    if (!value.isValid()) {
        return failure(u"--set %1 %2"_s.arg(key, expectation(*kind)));
    }
    return SettingOption{key, value};
}

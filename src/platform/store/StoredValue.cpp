#include "platform/store/StoredValue.h"

#include "platform/files/PathText.h"

#include <QJsonArray>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace StoredValue {
namespace {

constexpr auto bytesTag = "base64:"_L1;
constexpr auto textTag = "text:"_L1;

/// 0 for what is no number, NaN included; true and yes are 1.
double number(const QString &written)
{
    if (written.compare("true"_L1, Qt::CaseInsensitive) == 0 || written.compare("yes"_L1, Qt::CaseInsensitive) == 0) {
        return 1;
    }
    const double result = written.toDouble(); // too large a number gives an infinity, anything else that fails 0
    return std::isnan(result) ? 0 : result;
}

} // namespace

QJsonValue from(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QByteArray:
        return QString(bytesTag + QString::fromLatin1(value.toByteArray().toBase64()));
    case QMetaType::QString: {
        const QString text = value.toString();
        return text.startsWith(bytesTag) || text.startsWith(textTag) ? textTag + text : text;
    }
    case QMetaType::QVariantList: {
        QJsonArray elements;
        for (const QVariant &element : value.toList()) {
            elements << from(element);
        }
        return elements;
    }
    default:
        return QJsonValue::fromVariant(value);
    }
}

QString text(const QJsonValue &value)
{
    if (const auto bytes = data(value)) {
        return PathText::fromBytes(*bytes);
    }
    const QString written = value.toVariant().toString();
    return value.isString() && written.startsWith(textTag) ? written.sliced(textTag.size()) : written;
}

std::optional<QByteArray> data(const QJsonValue &value)
{
    const QString written = value.toString();
    if (!written.startsWith(bytesTag)) {
        return std::nullopt;
    }
    auto bytes = QByteArray::fromBase64Encoding(written.sliced(bytesTag.size()).toLatin1(),
                                                QByteArray::AbortOnBase64DecodingErrors);
    return bytes ? std::optional(*bytes) : std::nullopt;
}

bool boolean(const QJsonValue &value)
{
    return number(text(value).trimmed()) != 0;
}

std::int64_t integer(const QJsonValue &value)
{
    using Limits = std::numeric_limits<std::int64_t>;
    const QString written = text(value).trimmed();
    bool isExact = false;
    if (const qlonglong exact = written.toLongLong(&isExact); isExact) {
        return exact;
    }
    constexpr double bound = 9223372036854775808.0; // 2 to the 63rd: the first that does not fit
    const double result = number(written);
    if (result >= bound) {
        return Limits::max();
    }
    return result < -bound ? Limits::min() : static_cast<std::int64_t>(result);
}

std::optional<QVariantList> list(const QJsonValue &value)
{
    if (!value.isArray()) {
        return std::nullopt;
    }
    QVariantList elements;
    for (const QJsonValue element : value.toArray()) {
        const auto bytes = data(element);
        const auto inner = list(element);
        elements << (bytes                ? QVariant(*bytes)
                     : inner              ? QVariant(*inner)
                     : element.isString() ? QVariant(text(element))
                                          : element.toVariant());
    }
    return elements;
}

} // namespace StoredValue

#include "platform/store/StoredValue.h"

#include "platform/files/PathText.h"

#include <QByteArrayList>
#include <QStringList>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace StoredValue {
namespace {

bool isList(const QVariant &value)
{
    const int type = value.typeId();
    return type == QMetaType::QVariantList || type == QMetaType::QStringList || type == QMetaType::QByteArrayList;
}

QVariant normalizedScalar(const QVariant &value)
{
    return value.typeId() == QMetaType::QByteArray ? QVariant(value.toByteArray()) : QVariant(value.toString());
}

} // namespace

QVariant normalized(const QVariant &value)
{
    if (!value.isValid()) {
        return {};
    }
    if (!isList(value)) {
        return normalizedScalar(value);
    }
    QVariantList elements;
    for (const QVariant &element : value.toList()) {
        elements << normalizedScalar(element);
    }
    return elements;
}

QString text(const QVariant &value)
{
    if (value.typeId() == QMetaType::QByteArray) {
        return PathText::fromBytes(value.toByteArray());
    }
    if (!isList(value)) {
        return value.toString();
    }
    QStringList texts;
    for (const QVariant &element : value.toList()) {
        texts << text(element);
    }
    return texts.join(", "_L1);
}

double number(const QVariant &value)
{
    const QString written = text(value).trimmed();
    if (written.compare("true"_L1, Qt::CaseInsensitive) == 0 || written.compare("yes"_L1, Qt::CaseInsensitive) == 0) {
        return 1;
    }
    const double result = written.toDouble(); // too large a number gives an infinity, anything else that fails 0
    return std::isnan(result) ? 0 : result;
}

std::int64_t integer(const QVariant &value)
{
    using Limits = std::numeric_limits<std::int64_t>;
    bool ok = false;
    if (const qlonglong exact = text(value).trimmed().toLongLong(&ok); ok) {
        return exact;
    }
    constexpr double bound = 9223372036854775808.0; // 2 to the 63rd: the first that does not fit
    const double result = number(value);
    if (result >= bound) {
        return Limits::max();
    }
    if (result < -bound) {
        return Limits::min();
    }
    return static_cast<std::int64_t>(result);
}

} // namespace StoredValue

#include "platform/store/PropertyList.h"

#include <QDateTime>

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace PropertyList {
namespace {

// libplist frees a tree by recursion, so a hostile file could exhaust the stack: no list of ours comes near these.
constexpr qsizetype maximumSize = 16'777'216;
constexpr qsizetype maximumContainers = 1000;

struct PlistFree {
    void operator()(plist_t node) const noexcept { plist_free(node); }
};
using Plist = std::unique_ptr<void, PlistFree>;

struct Free {
    void operator()(void *memory) const noexcept { std::free(memory); } // NOLINT: libplist hands out malloc's memory
};
template<typename T>
using Malloced = std::unique_ptr<T, Free>;

QVariant valueOf(plist_t node);

QVariantMap mapOf(plist_t node)
{
    plist_dict_iter rawIterator = nullptr;
    plist_dict_new_iter(node, &rawIterator);
    const Malloced<void> iterator(rawIterator);
    QVariantMap map;
    for (;;) {
        char *rawKey = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator.get(), &rawKey, &value);
        const Malloced<char> key(rawKey);
        if (!value) {
            return map;
        }
        map.insert(QString::fromUtf8(key.get()), valueOf(value));
    }
}

QVariantList listOf(plist_t node)
{
    plist_array_iter rawIterator = nullptr;
    plist_array_new_iter(node, &rawIterator);
    const Malloced<void> iterator(rawIterator);
    QVariantList list;
    for (;;) {
        plist_t value = nullptr;
        plist_array_next_item(node, iterator.get(), &value);
        if (!value) {
            return list;
        }
        list.append(valueOf(value));
    }
}

bool booleanOf(plist_t node)
{
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return value != 0;
}

/// The library stores every integer without its sign.
qlonglong integerOf(plist_t node)
{
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return static_cast<qlonglong>(value);
}

double realOf(plist_t node)
{
    double value = 0;
    plist_get_real_val(node, &value);
    return value;
}

QString textOf(plist_t node)
{
    std::uint64_t length = 0;
    const char *text = plist_get_string_ptr(node, &length);
    return QString::fromUtf8(text, static_cast<qsizetype>(length));
}

QByteArray bytesOf(plist_t node)
{
    std::uint64_t length = 0;
    const char *bytes = plist_get_data_ptr(node, &length);
    return {bytes, static_cast<qsizetype>(length)};
}

QString dateOf(plist_t node)
{
    std::int32_t seconds = 0; // since the first moment of 2001
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC).addSecs(seconds).toString(Qt::ISODate);
}

QVariant valueOf(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        return booleanOf(node);
    case PLIST_UINT:
        return integerOf(node);
    case PLIST_REAL:
        return realOf(node);
    case PLIST_STRING:
        return textOf(node);
    case PLIST_DATA:
        return bytesOf(node);
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_ARRAY:
        return listOf(node);
    case PLIST_DICT:
        return mapOf(node);
    default:
        return {};
    }
}

} // namespace

std::optional<QVariantMap> parseDictionary(const QByteArray &xml)
{
    if (xml.isEmpty() || xml.size() > maximumSize || xml.count("<dict") + xml.count("<array") > maximumContainers) {
        return std::nullopt;
    }
    plist_t raw = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &raw);
    const Plist root(raw);
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT) {
        return std::nullopt;
    }
    return mapOf(root.get());
}

} // namespace PropertyList

#include "platform/store/PropertyList.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

/// The value of the element at hand; an error in the reader for one of another kind.
QVariant readValue(QXmlStreamReader &reader)
{
    const QString kind = reader.name().toString();
    const QString text = reader.readElementText();
    bool isKnown = true;
    QVariant value;
    if (kind == "string"_L1) {
        value = text;
    } else if (kind == "integer"_L1) {
        value = text.toLongLong(&isKnown);
    } else {
        value = kind == "true"_L1;
        isKnown = kind == "true"_L1 || kind == "false"_L1;
    }
    if (!isKnown) {
        reader.raiseError(u"no value: "_s + kind);
    }
    return value;
}

} // namespace

std::optional<QVariantMap> PropertyList::parseDictionary(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    for (const QLatin1StringView name : {"plist"_L1, "dict"_L1}) {
        if (!reader.readNextStartElement() || reader.name() != name) {
            return std::nullopt;
        }
    }
    QVariantMap values;
    while (reader.readNextStartElement()) {
        const bool isKey = reader.name() == "key"_L1;
        const QString key = reader.readElementText();
        if (!isKey || !reader.readNextStartElement()) {
            return std::nullopt;
        }
        values.insert(key, readValue(reader));
    }
    while (!reader.atEnd()) {
        reader.readNext();
    }
    return reader.hasError() ? std::nullopt : std::optional(values);
}

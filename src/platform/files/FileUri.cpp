#include "platform/files/FileUri.h"

#include "platform/files/PathText.h"

namespace FileUri {
namespace {

bool startsWith(QByteArrayView bytes, QByteArrayView lowerCaseStart)
{
    return bytes.size() >= lowerCaseStart.size() &&
           bytes.first(lowerCaseStart.size()).compare(lowerCaseStart, Qt::CaseInsensitive) == 0;
}

/// What follows the scheme and this machine's name; empty when the address is of another kind or machine.
QByteArrayView escapedPath(QByteArrayView uri)
{
    for (const QByteArrayView start : {QByteArrayView("file://localhost/"), QByteArrayView("file:///")}) {
        if (startsWith(uri, start)) {
            return uri.sliced(start.size() - 1);
        }
    }
    const QByteArrayView shortStart("file:/");
    const bool namesAMachine = startsWith(uri, "file://");
    return startsWith(uri, shortStart) && !namesAMachine ? uri.sliced(shortStart.size() - 1) : QByteArrayView();
}

/// The byte that "%2f" and its like stand for; nothing when no such escape starts the text.
std::optional<char> escapedByte(QByteArrayView text)
{
    if (text.size() < 3 || text.front() != '%') {
        return {};
    }
    const QByteArray byte = QByteArray::fromHex(text.sliced(1, 2).toByteArray());
    const bool isHex = byte.toHex().compare(text.sliced(1, 2), Qt::CaseInsensitive) == 0;
    return isHex ? std::optional(byte.front()) : std::nullopt;
}

} // namespace

QByteArray fromPath(QStringView path)
{
    return "file://" + PathText::toBytes(path).toPercentEncoding("/");
}

std::optional<QString> toPath(QByteArrayView uri)
{
    QByteArray bytes;
    for (QByteArrayView rest = escapedPath(uri); !rest.isEmpty();) {
        const std::optional<char> escaped = escapedByte(rest);
        bytes += escaped.value_or(rest.front());
        rest = rest.sliced(escaped ? 3 : 1);
    }
    if (bytes.isEmpty() || bytes.contains('\0')) {
        return {};
    }
    return PathText::fromBytes(bytes);
}

} // namespace FileUri

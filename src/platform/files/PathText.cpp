#include "platform/files/PathText.h"

namespace PathText {
namespace {

constexpr char16_t escapeBase = 0xDC00; // a byte b that is no text becomes the lone low surrogate U+DC00 + b
constexpr char16_t firstEscape = escapeBase + 0x80;
constexpr char16_t lastEscape = escapeBase + 0xFF;

struct Decoded {
    char32_t codePoint = 0;
    qsizetype length = 0; ///< 0: no well-formed sequence starts here
};

/// How a lead byte begins its sequence: the sequence's length, the lead's own bits, and the smallest code point that
/// may be written in that length (anything below is an overlong form).
struct Lead {
    qsizetype length;
    char32_t bits;
    char32_t smallest;
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80) {
        return {.length = 1, .bits = byte, .smallest = 0};
    }
    if ((byte & 0xE0U) == 0xC0) {
        return {.length = 2, .bits = byte & 0x1FU, .smallest = 0x80};
    }
    if ((byte & 0xF0U) == 0xE0) {
        return {.length = 3, .bits = byte & 0x0FU, .smallest = 0x800};
    }
    if ((byte & 0xF8U) == 0xF0) {
        return {.length = 4, .bits = byte & 0x07U, .smallest = 0x10000};
    }
    return {};
}

/// Only the shortest form of a Unicode scalar value counts as UTF-8. Qt's decoder is not used because it swallows a
/// leading byte order mark and does not say which bytes it replaced.
Decoded decodeFirst(QByteArrayView bytes)
{
    const Lead lead = leadOf(static_cast<unsigned char>(bytes.front()));
    if (lead.length == 0 || lead.length > bytes.size()) {
        return {};
    }
    char32_t codePoint = lead.bits;
    for (const char byte : bytes.sliced(1, lead.length - 1)) {
        const auto value = static_cast<unsigned char>(byte);
        if ((value & 0xC0U) != 0x80) {
            return {};
        }
        codePoint = codePoint << 6U | (value & 0x3FU);
    }
    if (codePoint < lead.smallest || codePoint > QChar::LastValidCodePoint || QChar::isSurrogate(codePoint)) {
        return {};
    }
    return {.codePoint = codePoint, .length = lead.length};
}

/// Calls handle(text) for each code point of the text, and for each lone surrogate.
template<typename Handler>
void forEachCharacter(QStringView text, Handler handle)
{
    for (qsizetype i = 0; i < text.size();) {
        const bool pair = i + 1 < text.size() && text[i].isHighSurrogate() && text[i + 1].isLowSurrogate();
        const qsizetype length = pair ? 2 : 1;
        handle(text.sliced(i, length));
        i += length;
    }
}

bool isLoneSurrogate(QStringView character)
{
    return character.size() == 1 && character.front().isSurrogate();
}

bool isControl(QChar character)
{
    const auto category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

} // namespace

QString fromBytes(QByteArrayView bytes)
{
    QString text;
    text.reserve(bytes.size());
    while (!bytes.isEmpty()) {
        const Decoded decoded = decodeFirst(bytes);
        if (decoded.length == 0) {
            text += QChar(static_cast<char16_t>(escapeBase + static_cast<unsigned char>(bytes.front())));
        } else {
            text += QChar::fromUcs4(decoded.codePoint);
        }
        bytes = bytes.sliced(qMax(decoded.length, qsizetype(1)));
    }
    return text;
}

QByteArray toBytes(QStringView path)
{
    QByteArray bytes;
    bytes.reserve(path.size());
    forEachCharacter(path, [&bytes](QStringView character) {
        const char16_t unit = character.front().unicode();
        if (!isLoneSurrogate(character)) {
            bytes += character.toUtf8();
        } else if (unit >= firstEscape && unit <= lastEscape) {
            bytes += static_cast<char>(unit - escapeBase);
        } else {
            bytes += QStringView(u"\uFFFD").toUtf8(); // not from fromBytes(): no byte to go back to
        }
    });
    return bytes;
}

QString forDisplay(QStringView path)
{
    QString shown;
    shown.reserve(path.size());
    forEachCharacter(path, [&shown](QStringView character) {
        if (isLoneSurrogate(character) || isControl(character.front())) {
            shown += QChar(QChar::ReplacementCharacter);
        } else {
            shown += character;
        }
    });
    return shown;
}

} // namespace PathText

#include "platform/store/IniText.h"

#include "platform/files/PathText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace IniText {
namespace {

// Types other than text are marked by what their text begins with; a text that begins with "@" gets another "@".
constexpr auto bytesTag = "@ByteArray("_L1;
constexpr auto stringTag = "@String("_L1; // QSettings puts texts with a NUL into it
constexpr auto arrayTag = "@Array()"_L1;  // ours: first in every list, so that a list of one is no text
constexpr auto emptyTag = "@Invalid()"_L1;

bool isBlank(QChar character)
{
    return character == u' ' || character == u'\t';
}

/// -1 for what is no digit of the base.
int digitValue(QChar character, int base)
{
    static constexpr auto digits = "0123456789abcdef"_L1;
    const auto value = static_cast<int>(digits.first(base).indexOf(character, 0, Qt::CaseInsensitive));
    return character.unicode() < 0x80 ? value : -1; // a letter of another script may fold to one of these
}

/// Reads the right side of one line: "text", or a list "text, text".
class ValueReader {
public:
    explicit ValueReader(QStringView line) : rest(line) {}

    QVariant read();
    bool isComplete() const { return complete; }

private:
    QString element();
    void escape(QString &out);
    void numericEscape(QString &out, int base);
    QVariant typed(const QString &raw);
    QVariant bytes(const QString &raw);

    QStringView rest;
    bool complete = true;
    bool more = false; ///< the element was followed by a comma
};

QVariant ValueReader::read()
{
    const QString first = element();
    const bool marked = first == arrayTag;
    if (!marked && !more) {
        return typed(first);
    }
    QVariantList list;
    if (!marked) {
        list << typed(first);
    }
    while (more) {
        list << typed(element());
    }
    return list;
}

/// The text up to an unquoted comma, a comment or the end. Blanks around it count only inside quotes.
QString ValueReader::element()
{
    QString out;
    qsizetype kept = 0; // what lies behind is blanks that may turn out to be trailing ones
    bool quoted = false;
    more = false;
    while (!rest.isEmpty()) {
        const QChar c = rest.front();
        rest = rest.sliced(1);
        if (!quoted && (c == u',' || c == u';')) {
            more = c == u',';
            rest = more ? rest : QStringView();
            break;
        }
        if (c == u'"') {
            quoted = !quoted;
        } else if (c == u'\\') {
            escape(out);
        } else if (quoted || !isBlank(c) || !out.isEmpty()) {
            out += c;
        }
        if (quoted || !isBlank(c)) {
            kept = out.size();
        }
    }
    complete &= !quoted;
    return out.first(kept);
}

void ValueReader::escape(QString &out)
{
    static constexpr QStringView names = u"abfnrtv\"?'\\";
    static constexpr QStringView meanings = u"\a\b\f\n\r\t\v\"?'\\";
    const QChar c = rest.isEmpty() ? QChar() : rest.front();
    if (const auto index = names.indexOf(c); index >= 0 && !rest.isEmpty()) {
        out += meanings[index];
        rest = rest.sliced(1);
    } else if (c == u'x') {
        rest = rest.sliced(1);
        numericEscape(out, 16);
    } else {
        numericEscape(out, 8);
    }
}

/// As many digits as there are make one UTF-16 unit; none, or too many, make nothing.
void ValueReader::numericEscape(QString &out, int base)
{
    char32_t unit = 0;
    qsizetype count = 0;
    for (; count < rest.size() && unit <= 0xFFFF; ++count) {
        const int digit = digitValue(rest[count], base);
        if (digit < 0) {
            break;
        }
        unit = unit * static_cast<char32_t>(base) + static_cast<char32_t>(digit);
    }
    rest = rest.sliced(count);
    if (count > 0 && unit <= 0xFFFF) {
        out += QChar(static_cast<char16_t>(unit));
    } else {
        complete = false;
    }
}

QVariant ValueReader::typed(const QString &raw)
{
    if (!raw.startsWith(u'@')) {
        return raw;
    }
    if (raw.startsWith("@@"_L1)) {
        return raw.sliced(1);
    }
    if (raw == emptyTag) {
        return QVariantList();
    }
    if (raw.startsWith(bytesTag) && raw.endsWith(u')')) {
        return bytes(raw);
    }
    if (raw.startsWith(stringTag) && raw.endsWith(u')')) {
        return raw.sliced(stringTag.size()).chopped(1);
    }
    complete = false; // a type that this program never writes
    return raw;
}

QVariant ValueReader::bytes(const QString &raw)
{
    const QString content = raw.sliced(bytesTag.size()).chopped(1);
    const auto isByte = [](QChar c) { return c.unicode() <= 0xFF; };
    complete &= std::ranges::all_of(content, isByte);
    return content.toLatin1();
}

/// A key in a file is made of letters, digits and "_-.", with "\" for the slash and "%XX" or "%UXXXX" for the rest.
QString keyFrom(QStringView written, bool &complete)
{
    QString key;
    while (!written.isEmpty()) {
        const bool wide = written.startsWith(u"%U");
        const qsizetype length = wide ? 6 : written.front() == u'%' ? 3 : 1;
        bool ok = written.size() >= length;
        const QStringView token = written.first(qMin(length, written.size()));
        if (length == 1) {
            key += token.front() == u'\\' ? QChar(u'/') : token.front();
        } else if (const auto unit = token.sliced(wide ? 2 : 1).toUShort(&ok, 16); ok && token.size() == length) {
            key += QChar(unit);
        } else {
            complete = false;
        }
        written = written.sliced(token.size());
    }
    return key;
}

/// What a section's line puts before the keys that follow: nothing for [General].
QString prefixFrom(QStringView section, bool &complete)
{
    if (section.compare(u"general", Qt::CaseInsensitive) == 0) {
        return {};
    }
    if (section.compare(u"%general", Qt::CaseInsensitive) == 0) { // the section that is really called so
        return section.sliced(1) + u'/';
    }
    return keyFrom(section, complete) + u'/';
}

QString writtenKey(const QString &key)
{
    QString out;
    for (const QChar c : key) {
        const char16_t unit = c.unicode();
        if (unit < 0x80 && (c.isLetterOrNumber() || u"_-."_s.contains(c))) {
            out += c;
        } else if (c == u'/') {
            out += u'\\';
        } else if (unit <= 0xFF) {
            out += u"%%1"_s.arg(unit, 2, 16, QChar(u'0')).toUpper();
        } else {
            out += u"%U"_s + u"%1"_s.arg(unit, 4, 16, QChar(u'0')).toUpper();
        }
    }
    return out;
}

/// Whether a unit of the text has to be written as "\x…": control characters, and surrogates without their other half.
bool needsNumber(const QString &text, qsizetype i)
{
    const QChar c = text[i];
    if (c.isHighSurrogate()) {
        return i + 1 >= text.size() || !text[i + 1].isLowSurrogate();
    }
    if (c.isLowSurrogate()) {
        return i == 0 || !text[i - 1].isHighSurrogate();
    }
    return c.category() == QChar::Other_Control;
}

QString writtenElement(const QString &text)
{
    QString out;
    bool afterNumber = false; // a hexadecimal digit there would be read as one more of the number's
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool asNumber = needsNumber(text, i) || (afterNumber && digitValue(c, 16) >= 0);
        if (asNumber) {
            out += u"\\x"_s + QString::number(c.unicode(), 16);
        } else if (c == u'\\' || c == u'"') {
            out += u'\\' + QString(c);
        } else {
            out += c;
        }
        afterNumber = asNumber;
    }
    const auto needsQuotes = [](QChar c) { return u" \",;="_s.contains(c); };
    return out.isEmpty() || std::ranges::any_of(out, needsQuotes) ? u'"' + out + u'"' : out;
}

QString writtenValue(const QVariant &value)
{
    if (value.typeId() == QMetaType::QByteArray) {
        return writtenElement(bytesTag + QString::fromLatin1(value.toByteArray()) + u')');
    }
    if (value.typeId() != QMetaType::QVariantList) {
        const QString text = value.toString();
        return writtenElement(text.startsWith(u'@') ? u'@' + text : text);
    }
    QString out = arrayTag;
    for (const QVariant &element : value.toList()) {
        out += ", "_L1 + writtenValue(element);
    }
    return out;
}

/// Takes in "key=value"; false when something of it is lost.
bool readEntry(QStringView line, const QString &prefix, QVariantMap &values)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 1) {
        return false;
    }
    bool complete = true;
    const QString key = prefix + keyFrom(line.first(equals).trimmed(), complete);
    if (key.isEmpty()) {
        return false;
    }
    ValueReader reader(line.sliced(equals + 1));
    complete &= !values.contains(key); // the later line counts
    values.insert(key, reader.read());
    return complete && reader.isComplete();
}

} // namespace

Content parse(const QByteArray &text)
{
    static constexpr QByteArrayView byteOrderMark = "\xEF\xBB\xBF";
    Content content;
    QString prefix;
    for (const QByteArray &bytes : text.sliced(text.startsWith(byteOrderMark) ? byteOrderMark.size() : 0).split('\n')) {
        const QString whole = PathText::fromBytes(bytes.trimmed());
        const QStringView line(whole);
        if (line.isEmpty() || line.startsWith(u';')) {
            continue;
        }
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            prefix = prefixFrom(line.sliced(1).chopped(1).trimmed(), content.complete);
        } else {
            content.complete &= !line.startsWith(u'[') && readEntry(line, prefix, content.values);
        }
    }
    return content;
}

QByteArray write(const QVariantMap &values)
{
    QString out = u"[General]\n"_s;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        out += writtenKey(value.key()) + u'=' + writtenValue(value.value()) + u'\n';
    }
    return out.toUtf8();
}

} // namespace IniText

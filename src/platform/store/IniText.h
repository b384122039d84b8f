#pragma once

#include <QByteArray>
#include <QVariantMap>

/// The text of a settings file, in the INI syntax of QSettings: what one writes the other reads.
///
/// QSettings itself loses lone surrogates (see PathText), lists of one and empty lists, drops lines it does not
/// understand without a word, and builds any type a "@Variant" names, which a damaged or hostile file can use to crash
/// the program.
namespace IniText {

struct Content {
    QVariantMap values;   ///< texts, bytes, and lists of these
    bool complete = true; ///< false: writing `values` back would lose something the text holds
};

/// Never fails; what cannot be understood is left out and said in `complete`. Comments are no loss.
Content parse(const QByteArray &text);

/// The text that parse() reads as the same values; they must be texts, bytes, or lists of these.
QByteArray write(const QVariantMap &values);

} // namespace IniText

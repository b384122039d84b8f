#pragma once

#include <QString>

/// Text for the internet; the program does not call it, and it belongs to the vocabulary.
namespace GlobalFun {

/// The text as UTF-8 for a value in a URL's query: all but letters, digits and -._~&; is percent-escaped.
QString encodedURLParameterString(const QString &text);

} // namespace GlobalFun

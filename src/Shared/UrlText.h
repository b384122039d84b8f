#pragma once

#include <QString>

/// Text for URLs. What the program does not call belongs to the vocabulary.
namespace GlobalFun {

/// The text as UTF-8 for a value in a URL's query: all but letters, digits and -._~&; is percent-escaped.
QString encodedURLParameterString(const QString &text);

} // namespace GlobalFun

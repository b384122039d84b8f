#include "app/list/MovieFilter.h"

#include "platform/files/PathText.h"

#include <algorithm>

namespace {

/// Some systems write an accent as a letter of its own.
QString comparable(const QString &text)
{
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded();
}

} // namespace

MovieFilter::MovieFilter(const QString &text) : words_(comparable(text).split(u' ', Qt::SkipEmptyParts)) {}

bool MovieFilter::accepts(const QString &path) const
{
    const QString shown = isEmpty() ? QString() : comparable(PathText::forDisplay(path));
    return std::ranges::all_of(words_, [&shown](const QString &word) { return shown.contains(word); });
}

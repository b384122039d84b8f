#pragma once

#include <QString>

/// The text for a tooltip that shows it as it is, wrapped. A plain text with something like a tag in it, as names of
/// files may have, would be taken for rich text. An empty one stays empty: no tooltip.
inline QString plainToolTip(const QString &text)
{
    return text.isEmpty()
               ? QString()
               : QStringLiteral("<p style='white-space:pre-wrap'>") + text.toHtmlEscaped() + QStringLiteral("</p>");
}

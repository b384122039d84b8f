#pragma once

#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"

/// The colour archived under the key; `fallback` when the key is absent or its text is no colour.
inline QColor storedColor(const UserDefaults &defaults, QAnyStringView key, const QColor &fallback)
{
    return ColorArchive::unarchive(defaults.textValue(key)).value_or(fallback);
}

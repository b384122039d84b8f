#pragma once

#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"

/// The colour archived under the key; `fallback` when the key is absent or its bytes are no colour.
inline QColor storedColor(const UserDefaults &defaults, QAnyStringView key, const QColor &fallback)
{
    return ColorArchive::unarchive(defaults.dataValue(key).value_or(QByteArray())).value_or(fallback);
}

#include "Shared/PreferenceKeys.h"

#include <algorithm>

namespace PreferenceKeys {

QString preferencesFrame(QStringView paneIdentifier)
{
    return u"MASPreferences " + paneIdentifier + u" Frame";
}

std::optional<Kind> kindOf(QStringView key)
{
    const auto found = std::ranges::find_if(all, [key](const Setting &setting) { return key == setting.key; });
    return found == all.end() ? std::nullopt : std::optional(found->kind);
}

} // namespace PreferenceKeys

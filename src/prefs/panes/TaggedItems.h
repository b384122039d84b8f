#pragma once

#include <QComboBox>

#include <cstdint>

/// Pop-up buttons whose items stand for numbers in the store, their tags: the first item for 0, and so on.
namespace TaggedItems {

/// Selects the tag's item; where there is none, the selection stays as it is.
inline void select(QComboBox &popUp, std::int64_t tag)
{
    if (tag >= 0 && tag < popUp.count()) {
        popUp.setCurrentIndex(static_cast<int>(tag));
    }
}

inline std::int64_t selectedTag(const QComboBox &popUp)
{
    return popUp.currentIndex();
}

} // namespace TaggedItems

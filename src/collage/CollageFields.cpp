#include "collage/CollageFields.h"

namespace CollageFields {

double Number::in(const CollageSettings &settings) const
{
    return std::visit([&](auto field) { return static_cast<double>(settings.*field); }, member);
}

void Number::put(CollageSettings &settings, double value) const
{
    std::visit(
        [&](auto field) { settings.*field = static_cast<std::remove_reference_t<decltype(settings.*field)>>(value); },
        member);
}

bool Number::isTileSide() const
{
    return is(&CollageSettings::gridWidth) || is(&CollageSettings::gridHeight);
}

} // namespace CollageFields

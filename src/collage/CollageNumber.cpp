#include "collage/CollageNumber.h"

#include <array>

namespace {

constexpr std::int32_t smallestShownTile = 50;
constexpr std::int32_t smallestTile = 30;

struct Rule {
    std::int32_t shownFrom;
    std::int32_t acceptedFrom;
    void (*write)(CollageSettings &settings, std::int32_t value);
};

// In the order of CollageNumber.
constexpr std::array<Rule, 8> rules{{
    {1, 1, [](CollageSettings &settings, std::int32_t value) { settings.rowNumber = value; }},
    {1, 1, [](CollageSettings &settings, std::int32_t value) { settings.columeNumber = value; }},
    {smallestShownTile, smallestTile,
     [](CollageSettings &settings, std::int32_t value) { settings.gridWidth = value; }},
    {smallestShownTile, smallestTile,
     [](CollageSettings &settings, std::int32_t value) { settings.gridHeight = value; }},
    {0, 0, [](CollageSettings &settings, std::int32_t value) { settings.gridBorderWidth = value; }},
    {0, 0, [](CollageSettings &settings, std::int32_t value) { settings.columeSpace = value; }},
    {0, 0, [](CollageSettings &settings, std::int32_t value) { settings.rowSpace = value; }},
    {0, 0, [](CollageSettings &settings, std::int32_t value) { settings.borderWidth = value; }},
}};

const Rule &ruleOf(CollageNumber number)
{
    return rules.at(static_cast<std::size_t>(number));
}

} // namespace

bool CollageNumbers::isShown(CollageNumber number, std::int32_t value)
{
    return value >= ruleOf(number).shownFrom;
}

bool CollageNumbers::isAccepted(CollageNumber number, std::int32_t value)
{
    return value >= ruleOf(number).acceptedFrom;
}

bool CollageNumbers::isGridSize(CollageNumber number)
{
    return number == CollageNumber::GridWidth || number == CollageNumber::GridHeight;
}

void CollageNumbers::write(CollageSettings &settings, CollageNumber number, std::int32_t value)
{
    ruleOf(number).write(settings, value);
}

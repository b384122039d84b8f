#include "platform/store/ColorArchive.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace ColorArchive {
namespace {

constexpr std::array<QLatin1StringView, 4> componentNames{"red"_L1, "green"_L1, "blue"_L1, "alpha"_L1};
constexpr double largest = 0xFFFF; // QColor counts its components in 16 bits

} // namespace

std::array<double, 4> deviceRGB(const QColor &color)
{
    // Not redF() and its sisters: they are floats, and 0.2 is to be archived as 0.2.
    const QRgba64 rgba = color.rgba64();
    return {rgba.red() / largest, rgba.green() / largest, rgba.blue() / largest, rgba.alpha() / largest};
}

QByteArray archive(const QColor &color)
{
    QJsonObject object{{u"colorSpace"_s, u"sRGB"_s}};
    const auto components = deviceRGB(color);
    for (std::size_t i = 0; i < components.size(); ++i) {
        object.insert(componentNames.at(i), components.at(i));
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<QColor> unarchive(const QByteArray &data)
{
    const QJsonObject object = QJsonDocument::fromJson(data).object();
    if (object.value("colorSpace"_L1) != "sRGB"_L1) {
        return std::nullopt;
    }
    std::array<quint16, 4> units{};
    for (std::size_t i = 0; i < units.size(); ++i) {
        const double component = object.value(componentNames.at(i)).toDouble(-1);
        if (component < 0 || component > 1) {
            return std::nullopt;
        }
        units.at(i) = static_cast<quint16>(qRound(component * largest));
    }
    return QColor::fromRgba64(units[0], units[1], units[2], units[3]);
}

} // namespace ColorArchive

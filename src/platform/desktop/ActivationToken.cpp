#include "platform/desktop/ActivationToken.h"

#include <QString>

#include <array>

namespace {

constexpr const char *tokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr const char *startupIdVariable = "DESKTOP_STARTUP_ID";

struct Part {
    QByteArray ActivationToken::*value;
    QLatin1StringView key;
};

constexpr std::array parts{Part{&ActivationToken::token, QLatin1StringView("activation-token")},
                           Part{&ActivationToken::startupId, QLatin1StringView("desktop-startup-id")}};

} // namespace

ActivationToken ActivationToken::ofThisStart()
{
    ActivationToken given;
    given.token = qgetenv(tokenVariable);
    given.startupId = qgetenv(startupIdVariable);
    // Emptied, not removed: exportForWayland() sets it again when other threads may be reading the environment, and
    // then the environment need not grow.
    qputenv(tokenVariable, QByteArray());
    return given;
}

void ActivationToken::clearEnvironment()
{
    qunsetenv(startupIdVariable);
}

ActivationToken ActivationToken::fromPlatformData(const QVariantMap &data)
{
    constexpr qsizetype longest = 1024; // bytes, more than any desktop uses; the token goes into the environment
    ActivationToken token;
    for (const Part &part : parts) {
        const QByteArray value = data.value(part.key).toString().toUtf8();
        token.*part.value = value.size() <= longest ? value : QByteArray();
    }
    return token;
}

QVariantMap ActivationToken::platformData() const
{
    QVariantMap data;
    for (const Part &part : parts) {
        if (const QByteArray &value = this->*part.value; !value.isEmpty()) {
            data.insert(part.key, QString::fromUtf8(value));
        }
    }
    return data;
}

std::optional<std::uint32_t> ActivationToken::time() const
{
    const QByteArrayView mark("_TIME");
    const qsizetype at = startupId.lastIndexOf(mark);
    bool isNumber = false;
    const std::uint32_t time = at < 0 ? 0 : startupId.mid(at + mark.size()).toUInt(&isNumber);
    return isNumber && time != 0 ? std::optional(time) : std::nullopt; // 0 means "now" to the X server
}

void ActivationToken::exportForWayland() const
{
    qputenv(tokenVariable, token.isEmpty() ? startupId : token); // Debian 12's GLib calls both of them the start-up id
}

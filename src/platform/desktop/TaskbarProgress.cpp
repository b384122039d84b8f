#include "platform/desktop/TaskbarProgress.h"

#include <QDBusMessage>
#include <QVariantMap>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

TaskbarProgress::TaskbarProgress(const QDBusConnection &sessionBus, const QString &identifier) :
    sessionBus_(sessionBus), entry_(u"application://%1.desktop"_s.arg(identifier))
{
}

void TaskbarProgress::show(std::optional<double> fraction)
{
    std::optional<int> hundredths;
    if (fraction) {
        hundredths = static_cast<int>(std::clamp(*fraction, 0.0, 1.0) * 100.0);
    }
    if (hundredths == std::exchange(hundredths_, hundredths)) {
        return;
    }
    QDBusMessage update =
        QDBusMessage::createSignal(u"/org/tessarine/Tessarine"_s, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << entry_
           << QVariantMap{{u"progress"_s, hundredths.value_or(0) / 100.0},
                          {u"progress-visible"_s, hundredths.has_value()}};
    sessionBus_.send(update);
}

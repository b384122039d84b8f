#include "Shared/TimeFormat.h"

#include "Shared/NumberText.h"

#include <QByteArray>
#include <QList>
#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The number that the text starts with, in C's notation whatever the locale; 0 when there is none.
double leadingNumber(QStringView text)
{
    const QByteArray latin = text.trimmed().toLatin1(); // what is not Latin-1 becomes '?', which is no number
    const char *begin = latin.constData();
    const char *end = begin + latin.size();
    const bool negative = begin != end && *begin == '-';
    if (begin != end && (*begin == '-' || *begin == '+')) {
        ++begin;
    }
    if (begin == end || (*begin != '.' && (*begin < '0' || *begin > '9'))) {
        return 0.0; // "inf" and "nan" among them
    }

    double value = 0.0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error == std::errc::result_out_of_range) { // far too large, or too small to tell from 0
        value = QLocale::c().toDouble(QString::fromLatin1(begin, stop - begin));
    }
    return negative ? -value : value;
}

/// What is left of `time` after `units` of `length` seconds, cut to whole seconds.
std::int32_t rest(double time, std::int32_t units, std::int32_t length)
{
    return GlobalFun::truncatedToInt32(time - static_cast<double>(units) * length);
}

QString counted(std::int32_t count, bool several, const QString &one, const QString &many)
{
    return QString::number(count) + u' ' + (several ? many : one);
}

QString minutesText(std::int32_t wholeSeconds)
{
    return counted(wholeSeconds / 60, wholeSeconds > 119, u"minite"_s, u"minites"_s);
}

} // namespace

GlobalFun::HourMinuteSecond GlobalFun::getHour(double time)
{
    const std::int32_t whole = truncatedToInt32(time);
    const std::int32_t hours = whole / 3600;
    return {hours, (whole - hours * 3600) / 60, whole % 60};
}

QString GlobalFun::getTimeStringBySecond(double seconds)
{
    const HourMinuteSecond time = getHour(seconds);
    QString text;
    text.reserve(10);
    if (truncatedToInt32(seconds) >= -3599) {
        text += QString::asprintf("%02d:", time.hours);
    }
    return text + QString::asprintf("%02d:%02d", time.minutes, time.seconds);
}

double GlobalFun::getSecondsByTimeString(const QString &text)
{
    static constexpr std::array<double, 3> weights = {3600.0, 60.0, 1.0};
    double sum = 0.0;
    auto weight = weights.begin();
    for (const QStringView part : QStringView(text).split(u':')) {
        if (weight == weights.end()) {
            break;
        }
        sum += leadingNumber(part) * *weight++;
    }
    return sum;
}

QString GlobalFun::getEstimateStrBySecond(double seconds)
{
    const QString remaining = u" remaining"_s;
    const QString second = u"second"_s;
    const QString severalSeconds = u"seconds"_s;

    if (seconds < 60.0) {
        return fixedText(seconds, 0) + u' ' + (seconds > 1.0 ? severalSeconds : second) + remaining;
    }

    const std::int32_t whole = truncatedToInt32(seconds);
    if (seconds < 3600.0) {
        const std::int32_t left = rest(seconds, whole / 60, 60) % 60;
        return minutesText(whole) + u' ' + counted(left, left > 1, second, severalSeconds) + remaining;
    }
    const std::int32_t left = rest(seconds, whole / 3600, 3600);
    return counted(whole / 3600, whole > 7199, u"hour"_s, u"hours"_s) + u' ' + minutesText(left) + remaining;
}

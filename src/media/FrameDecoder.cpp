#include "media/FrameDecoder.h"

#include "media/BlankPicture.h"
#include "media/FrameFilter.h"
#include "media/KeyDecoder.h"
#include "media/MovieReader.h"
#include "media/PictureMaker.h"
#include "media/ToolWalk.h"
#include "media/VXMediaInfo.h"
#include "platform/files/PathText.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The time in microseconds, after the rounding that the tool's argument gets; nothing when it is out of all range.
std::optional<std::int64_t> asTheToolReads(double seconds)
{
    static constexpr double longest = 1e12;
    if (!(std::abs(seconds) < longest)) {
        return {};
    }
    std::array<char, 32> text = {};
    const char *end = std::to_chars(text.begin(), text.end(), seconds, std::chars_format::fixed, 2).ptr;
    double rounded = 0.0;
    std::from_chars(text.begin(), end, rounded);
    return std::llround(rounded * AV_TIME_BASE);
}

} // namespace

class FrameDecoder::State {
public:
    State(const QString &path, const CancelFlag &cancelled);

    Result<void> open();
    void scaleTo(QSize size) { maker_.scaleTo(size); }
    void useThreads(int count) { walk_.useThreads(count); }
    std::int64_t bytesPerFrame() const;
    void filterBy(const QByteArray &filters) { filters_ = filters; }
    Result<QImage> exactFrame(double seconds);
    Result<QImage> keyFrame(double seconds);
    Result<Found> exactContent(double seconds, double end);
    Result<Found> keyContent(double seconds, double end);
    std::optional<double> keyTimeBefore(double seconds);

private:
    Result<QImage> pictureOf(const AVFrame &frame);
    Result<bool> isBlankFrame(const AVFrame &frame);
    Result<Found> found(const AVFrame &frame, double seconds);
    double secondsOf(std::int64_t ticks, std::int64_t before) const;

    MovieReader reader_;
    ToolWalk walk_;
    KeyDecoder keys_;
    PictureMaker maker_;
    PictureMaker judge_; ///< makes what isBlank() looks at
    QByteArray filters_;
};

FrameDecoder::State::State(const QString &path, const CancelFlag &cancelled) :
    reader_(PathText::toBytes(path), cancelled), walk_(reader_)
{
}

Result<void> FrameDecoder::State::open()
{
    FFMpegInit();
    return reader_.open();
}

std::int64_t FrameDecoder::State::bytesPerFrame() const
{
    const AVCodecParameters &codec = *reader_.stream().codecpar;
    return std::max(0,
                    av_image_get_buffer_size(static_cast<AVPixelFormat>(codec.format), codec.width, codec.height, 1));
}

Result<QImage> FrameDecoder::State::exactFrame(double seconds)
{
    const auto time = asTheToolReads(seconds);
    if (!time) {
        return QImage();
    }
    const auto isThere = walk_.goTo(*time);
    if (!isThere) {
        return failure(isThere.error());
    }
    return *isThere ? pictureOf(walk_.frame()) : Result<QImage>(QImage());
}

Result<QImage> FrameDecoder::State::pictureOf(const AVFrame &frame)
{
    if (filters_.isEmpty()) {
        return maker_.make(frame, reader_.stream());
    }
    const auto result = filtered(frame, filters_);
    return result ? maker_.make(**result, reader_.stream()) : failure(result.error());
}

Result<QImage> FrameDecoder::State::keyFrame(double seconds)
{
    const auto time = asTheToolReads(seconds);
    if (!time) {
        return QImage();
    }
    reader_.beginPicture();
    walk_.leave();
    const auto key = reader_.readKey(reader_.fromStart(*time));
    if (!key) {
        return failure(key.error());
    }
    const AVFrame *frame = keys_.decode(reader_.stream(), *key);
    // Where each frame renews a part of the picture only, none comes of a single one.
    return frame ? pictureOf(*frame) : exactFrame(seconds);
}

Result<FrameDecoder::Found> FrameDecoder::State::exactContent(double seconds, double end)
{
    const auto time = asTheToolReads(seconds);
    const auto last = asTheToolReads(end);
    if (!time || !last) {
        return Found();
    }
    auto isThere = walk_.goTo(*time);
    const std::int64_t limit = reader_.inTicks(reader_.shownFrom(*last));
    while (isThere && *isThere) {
        const std::int64_t before = walk_.ticks();
        isThere = walk_.goOn();
        if (!isThere || !*isThere || walk_.ticks() >= limit) {
            break;
        }
        const auto blank = isBlankFrame(walk_.frame());
        if (!blank) {
            return failure(blank.error());
        }
        if (!*blank) {
            return found(walk_.frame(), secondsOf(walk_.ticks(), before));
        }
    }
    return isThere ? Result<Found>(Found()) : failure(isThere.error());
}

Result<FrameDecoder::Found> FrameDecoder::State::keyContent(double seconds, double end)
{
    const auto time = asTheToolReads(seconds);
    const auto last = asTheToolReads(end);
    if (!time || !last) {
        return Found();
    }
    reader_.beginPicture();
    walk_.leave();
    if (const auto opened = reader_.goToKeyBefore(reader_.fromStart(*time)); !opened) {
        return failure(opened.error());
    }
    std::int64_t ticks = reader_.inTicks(reader_.fromStart(*time));
    const std::int64_t limit = reader_.inTicks(reader_.fromStart(*last));
    for (;;) {
        const auto key = reader_.readKeyBehind(ticks);
        if (!key) {
            return failure(key.error());
        }
        ticks = key->empty() ? limit : MovieReader::timeOf(*key->front());
        if (ticks >= limit) {
            return Found();
        }
        const AVFrame *frame = keys_.decode(reader_.stream(), *key);
        if (frame && !isBlankFrame(*frame).value_or(true)) {
            return found(*frame, secondsOf(ticks, ticks));
        }
    }
}

Result<bool> FrameDecoder::State::isBlankFrame(const AVFrame &frame)
{
    judge_.scaleTo(judgedSize);
    return judge_.make(frame, reader_.stream()).map(&isBlank);
}

Result<FrameDecoder::Found> FrameDecoder::State::found(const AVFrame &frame, double seconds)
{
    return pictureOf(frame).map([seconds](const QImage &picture) { return Found{picture, seconds}; });
}

/// The time for which the tool gives the frame at these ticks, which follows the one at those before: in hundredths.
double FrameDecoder::State::secondsOf(std::int64_t ticks, std::int64_t before) const
{
    constexpr std::int64_t hundredth = AV_TIME_BASE / 100;
    const std::int64_t shown = av_rescale_q(ticks, reader_.stream().time_base, AV_TIME_BASE_Q);
    const std::int64_t time = shown - (reader_.shownFrom(shown) - shown);
    std::int64_t rounded = (time + 1 - ((time + 1) % hundredth + hundredth) % hundredth) / hundredth;
    if (before < ticks && reader_.inTicks(reader_.shownFrom(rounded * hundredth)) <= before) {
        ++rounded; // there are more than a hundred frames in a second
    }
    return static_cast<double>(rounded) / 100.0;
}

std::optional<double> FrameDecoder::State::keyTimeBefore(double seconds)
{
    const auto time = asTheToolReads(seconds);
    if (!time || !reader_.hasIndex()) {
        return {};
    }
    reader_.loadIndex();
    const std::int64_t key = reader_.keyBefore(reader_.inTicks(reader_.fromStart(*time)));
    if (key == AV_NOPTS_VALUE) {
        return {};
    }
    const std::int64_t found = av_rescale_q(key, reader_.stream().time_base, AV_TIME_BASE_Q);
    return (static_cast<double>(found) - static_cast<double>(reader_.fromStart(0))) / AV_TIME_BASE;
}

FrameDecoder::FrameDecoder(std::unique_ptr<State> state) : state_(std::move(state)) {}
FrameDecoder::~FrameDecoder() = default;
FrameDecoder::FrameDecoder(FrameDecoder &&) noexcept = default;
FrameDecoder &FrameDecoder::operator=(FrameDecoder &&) noexcept = default;

Result<FrameDecoder> FrameDecoder::open(const QString &path, const CancelFlag &cancelled)
{
    auto state = std::make_unique<State>(path, cancelled);
    if (const auto opened = state->open(); !opened) {
        return failure(opened.error());
    }
    return FrameDecoder(std::move(state));
}

void FrameDecoder::scaleTo(QSize size)
{
    state_->scaleTo(size);
}

void FrameDecoder::useThreads(int count)
{
    state_->useThreads(count);
}

std::int64_t FrameDecoder::bytesPerFrame() const
{
    return state_->bytesPerFrame();
}

void FrameDecoder::filterBy(const QByteArray &filters)
{
    state_->filterBy(filters);
}

Result<QImage> FrameDecoder::exactFrame(double seconds)
{
    return state_->exactFrame(seconds);
}

Result<QImage> FrameDecoder::keyFrame(double seconds)
{
    return state_->keyFrame(seconds);
}

Result<FrameDecoder::Found> FrameDecoder::exactContent(double seconds, double end)
{
    return state_->exactContent(seconds, end);
}

Result<FrameDecoder::Found> FrameDecoder::keyContent(double seconds, double end)
{
    return state_->keyContent(seconds, end);
}

std::optional<double> FrameDecoder::keyTimeBefore(double seconds)
{
    return state_->keyTimeBefore(seconds);
}

#include "media/FrameDecoder.h"

#include "media/BlankPicture.h"
#include "media/FrameFilter.h"
#include "media/MovieReader.h"
#include "media/PictureMaker.h"
#include "media/ToolClock.h"
#include "media/VXMediaInfo.h"
#include "platform/files/PathText.h"

extern "C" {
#include <libavutil/common.h>
#include <libavutil/imgutils.h>
}

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <new>
#include <span>

using namespace Qt::StringLiterals;

using namespace FFmpegHandles;

namespace {

/// The largest picture: 16K, 15,360 × 8,640. A file of some bytes can demand more memory than there is.
constexpr std::int64_t mostPixels = std::int64_t{1} << 27;

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
    void useThreads(int count) { threads_ = count; }
    std::int64_t bytesPerFrame() const;
    void filterBy(const QByteArray &filters) { filters_ = filters; }
    Result<QImage> exactFrame(double seconds);
    Result<QImage> keyFrame(double seconds);
    Result<Found> exactContent(double seconds, double end);
    Result<Found> keyContent(double seconds, double end);
    std::optional<double> keyTimeBefore(double seconds);

private:
    Result<void> openDecoder(int threads);
    Result<void> seek(std::int64_t time);
    bool canGoOnTo(std::int64_t ticks) const;
    Result<bool> decodeNext(std::int64_t target);
    void feed(std::int64_t target);
    bool decodeKey(std::span<const Packet> key);
    Result<bool> reach(std::int64_t time);
    Result<bool> advance();
    Result<QImage> picture();
    Result<bool> isBlankFrame();
    Result<Found> found(double seconds);
    double secondsOf(std::int64_t ticks, std::int64_t before) const;

    MovieReader reader_;
    int threads_ = 1;
    PictureMaker maker_;
    PictureMaker judge_; ///< makes what isBlank() looks at
    QByteArray filters_;
    CodecContext decoder_;
    bool decodesKeys_ = false; ///< the decoder has been opened for single packets
    Frame frame_;
    std::optional<ToolClock> clock_;
    // Where exactFrame() stands: the time last sought, and that of the frame in hand, in the stream's units.
    bool canGoOn_ = false;
    std::int64_t sought_ = 0;
    std::int64_t reached_ = AV_NOPTS_VALUE;
};

FrameDecoder::State::State(const QString &path, const CancelFlag &cancelled) :
    reader_(PathText::toBytes(path), cancelled), frame_(av_frame_alloc())
{
    if (!frame_) {
        throw std::bad_alloc();
    }
}

Result<void> FrameDecoder::State::open()
{
    FFMpegInit();
    auto opened = reader_.open();
    return opened ? openDecoder(threads_) : opened;
}

std::int64_t FrameDecoder::State::bytesPerFrame() const
{
    const AVCodecParameters &codec = *reader_.stream().codecpar;
    return std::max(0,
                    av_image_get_buffer_size(static_cast<AVPixelFormat>(codec.format), codec.width, codec.height, 1));
}

/// A new one for every seek: an old one keeps what it has learnt of the stream's order, which the tool cannot know.
Result<void> FrameDecoder::State::openDecoder(int threads)
{
    decodesKeys_ = false;
    const AVStream &stream = reader_.stream();
    const AVCodec *codec = avcodec_find_decoder(stream.codecpar->codec_id);
    decoder_.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder_ || avcodec_parameters_to_context(decoder_.get(), stream.codecpar) < 0) {
        return failure(u"has pictures that cannot be decoded"_s);
    }
    decoder_->pkt_timebase = stream.time_base;
    decoder_->framerate = stream.avg_frame_rate;
    decoder_->thread_count = threads;
    decoder_->max_pixels = mostPixels;
    if (avcodec_open2(decoder_.get(), codec, nullptr) < 0) {
        return failure(u"has pictures that cannot be decoded"_s);
    }
    return {};
}

Result<QImage> FrameDecoder::State::exactFrame(double seconds)
{
    const auto time = asTheToolReads(seconds);
    if (!time) {
        return QImage();
    }
    const auto reached = reach(*time);
    if (!reached) {
        return failure(reached.error());
    }
    return *reached ? picture() : Result<QImage>(QImage());
}

/// Takes the frame of that time in hand; false when there is none.
Result<bool> FrameDecoder::State::reach(std::int64_t time)
{
    reader_.beginPicture();
    const std::int64_t target = reader_.inTicks(reader_.shownFrom(time));
    if (!canGoOnTo(target)) {
        if (const auto found = seek(time); !found) {
            return failure(found.error());
        }
    }
    sought_ = target;
    while (reached_ == AV_NOPTS_VALUE || reached_ < target) {
        auto decoded = decodeNext(target);
        if (!decoded || !*decoded) {
            canGoOn_ = false;
            return decoded;
        }
        reached_ = frame_->best_effort_timestamp;
    }
    return true;
}

/// That of the frame in hand.
Result<QImage> FrameDecoder::State::picture()
{
    if (filters_.isEmpty()) {
        return maker_.make(*frame_, reader_.stream());
    }
    const auto frame = filtered(*frame_, filters_);
    return frame ? maker_.make(**frame, reader_.stream()) : failure(frame.error());
}

Result<void> FrameDecoder::State::seek(std::int64_t time)
{
    canGoOn_ = false;
    reached_ = AV_NOPTS_VALUE;
    const auto found = reader_.seekAsTheTool(reader_.fromStart(time));
    if (!found) {
        return failure(found.error());
    }
    canGoOn_ = *found;
    clock_.emplace(reader_.context(), reader_.stream(), reader_.shownFrom(time));
    return openDecoder(threads_);
}

/// Whether decoding on leads to this time sooner than seeking, and to the same frame.
bool FrameDecoder::State::canGoOnTo(std::int64_t ticks) const
{
    if (!canGoOn_ || ticks < sought_) {
        return false;
    }
    const std::int64_t key = reader_.keyBefore(ticks);
    return ticks <= reached_ || (reader_.knowsKeysUpTo(ticks) && key != AV_NOPTS_VALUE && key <= reached_);
}

/// Decodes one more frame; false at the end.
Result<bool> FrameDecoder::State::decodeNext(std::int64_t target)
{
    while (!reader_.mustStop()) {
        const int code = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (code == AVERROR_EOF) {
            return false;
        }
        if (code == AVERROR(ENOMEM)) {
            throw std::bad_alloc();
        }
        if (code < 0) {
            feed(target);
            continue;
        }
        clock_->hear(*frame_);
        if (frame_->best_effort_timestamp != AV_NOPTS_VALUE) { // the tool drops those without a time
            return true;
        }
    }
    return failure(reader_.problem());
}

/// Gives the decoder the next packet, or the end. Damaged ones it refuses, which changes nothing.
void FrameDecoder::State::feed(std::int64_t target)
{
    AVPacket *packet = reader_.read();
    if (!packet) {
        clock_->end(*decoder_);
        avcodec_send_packet(decoder_.get(), nullptr);
        return;
    }
    if (packet->size == 0) { // would mean the end
        return;
    }
    clock_->stamp(*packet, *decoder_);
    // Frames that no other refers to need not be decoded before the target; two packets may make one frame.
    const std::int64_t twoLater =
        av_sat_add64(packet->pts, 2 * std::clamp<std::int64_t>(packet->duration, 0, INT32_MAX));
    const bool isEarly = packet->pts != AV_NOPTS_VALUE && packet->pts < target && twoLater <= target;
    decoder_->skip_frame = isEarly ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    avcodec_send_packet(decoder_.get(), packet);
}

Result<QImage> FrameDecoder::State::keyFrame(double seconds)
{
    const auto time = asTheToolReads(seconds);
    if (!time) {
        return QImage();
    }
    reader_.beginPicture();
    canGoOn_ = false;
    const auto key = reader_.readKey(reader_.fromStart(*time));
    if (!key) {
        return failure(key.error());
    }
    // Where each frame renews a part of the picture only, none comes of a single one.
    return decodeKey(*key) ? picture() : exactFrame(seconds);
}

/// Decodes the key frame's packets and nothing else.
bool FrameDecoder::State::decodeKey(std::span<const Packet> key)
{
    if (key.empty()) {
        return false;
    }
    if (decodesKeys_) {
        avcodec_flush_buffers(decoder_.get());
    } else if (!openDecoder(1)) {
        return false;
    }
    decodesKeys_ = true; // one for all of them: nothing of a key frame depends on another
    for (const Packet &packet : key) {
        avcodec_send_packet(decoder_.get(), packet.get());
    }
    avcodec_send_packet(decoder_.get(), nullptr);
    return avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0;
}

Result<FrameDecoder::Found> FrameDecoder::State::exactContent(double seconds, double end)
{
    const auto time = asTheToolReads(seconds);
    const auto last = asTheToolReads(end);
    if (!time || !last) {
        return Found();
    }
    auto isThere = reach(*time);
    const std::int64_t limit = reader_.inTicks(reader_.shownFrom(*last));
    while (isThere && *isThere) {
        const std::int64_t before = reached_;
        isThere = advance();
        if (!isThere || !*isThere || reached_ >= limit) {
            break;
        }
        const auto blank = isBlankFrame();
        if (!blank) {
            return failure(blank.error());
        }
        if (!*blank) {
            return found(secondsOf(reached_, before));
        }
    }
    return isThere ? Result<Found>(Found()) : failure(isThere.error());
}

/// Takes the next frame in hand, one with a later time; false at the end.
Result<bool> FrameDecoder::State::advance()
{
    sought_ = av_sat_add64(reached_, 1); // from there on it is the first one
    while (reached_ < sought_) {
        auto decoded = decodeNext(sought_);
        if (!decoded || !*decoded) {
            canGoOn_ = false;
            return decoded;
        }
        reached_ = std::max(reached_, frame_->best_effort_timestamp);
    }
    return true;
}

Result<FrameDecoder::Found> FrameDecoder::State::keyContent(double seconds, double end)
{
    const auto time = asTheToolReads(seconds);
    const auto last = asTheToolReads(end);
    if (!time || !last) {
        return Found();
    }
    reader_.beginPicture();
    canGoOn_ = false;
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
        if (decodeKey(*key) && !isBlankFrame().value_or(true)) {
            return found(secondsOf(ticks, ticks));
        }
    }
}

Result<bool> FrameDecoder::State::isBlankFrame()
{
    judge_.scaleTo(judgedSize);
    return judge_.make(*frame_, reader_.stream()).map(&isBlank);
}

Result<FrameDecoder::Found> FrameDecoder::State::found(double seconds)
{
    return picture().map([seconds](const QImage &picture) { return Found{picture, seconds}; });
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

#include "media/MovieInput.h"

#include "media/RegularFile.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

using namespace FFmpegHandles;

namespace {

/// The demuxers that may be used: all but those that open further files without openRegularFile().
const QByteArray &allowedDemuxers()
{
    static const QByteArray names = [] {
        static constexpr std::array<std::string_view, 2> openUnseen = {"concat", "vobsub"};
        QByteArray list;
        void *position = nullptr;
        while (const AVInputFormat *format = av_demuxer_iterate(&position)) {
            if (std::ranges::find(openUnseen, format->name) == openUnseen.end()) {
                list.append(list.isEmpty() ? "" : ",").append(format->name);
            }
        }
        return list;
    }();
    return names;
}

/// The rank of this stream in the ffmpeg tool's choice of one. The probe must give the size of the stream that the tool
/// chooses, and the decoder its pictures.
std::int64_t rank(const AVStream &stream)
{
    std::int64_t score = std::int64_t{stream.codecpar->width} * stream.codecpar->height;
    if ((stream.event_flags & AVSTREAM_EVENT_FLAG_NEW_PACKETS) != 0) {
        score += 100'000'000;
    }
    if ((stream.disposition & AV_DISPOSITION_DEFAULT) != 0) {
        score += 5'000'000;
    }
    return score;
}

} // namespace

MovieInput::~MovieInput() = default;

Result<void> MovieInput::open(const QByteArray &path)
{
    const auto fileSize = checkRegularFile(path);
    if (!fileSize) {
        return failure(fileSize.error());
    }
    fileSize_ = *fileSize;
    const int code = openContext(path);
    if (mustStop() || code < 0) {
        return failure(describe(mustStop() ? AVERROR_EXIT : code));
    }
    return {};
}

int MovieInput::openContext(const QByteArray &path)
{
    context_.reset(avformat_alloc_context());
    if (!context_) {
        return AVERROR(ENOMEM);
    }
    openPlainly_ = std::exchange(context_->io_open, &openRegularFile);
    context_->opaque = this;
    context_->interrupt_callback = {
        [](void *input) { return static_cast<const MovieInput *>(input)->mustStop() ? 1 : 0; }, this};

    Options options;
    options.set("protocol_whitelist", "file");
    options.set("format_whitelist", allowedDemuxers().constData());
    // On failure FFmpeg frees the context itself.
    AVFormatContext *raw = context_.release();
    const int code = avformat_open_input(&raw, QByteArray("file:" + path).constData(), nullptr, &options.entries);
    context_.reset(raw);
    return code < 0 ? code : avformat_find_stream_info(context_.get(), nullptr);
}

/// FFmpeg calls this for every file that it opens, also for those that a playlist names. Only regular files are opened.
int MovieInput::openRegularFile(AVFormatContext *context, AVIOContext **file, const char *url, int flags,
                                AVDictionary **options)
{
    static constexpr std::string_view scheme = "file:";
    std::string_view path = url;
    if (path.starts_with(scheme)) {
        path.remove_prefix(scheme.size());
    }
    if (!checkRegularFile(QByteArray(path.data(), static_cast<qsizetype>(path.size())))) {
        return AVERROR(EACCES);
    }
    return static_cast<const MovieInput *>(context->opaque)->openPlainly_(context, file, url, flags, options);
}

AVStream *MovieInput::chooseVideo() const
{
    AVStream *best = nullptr;
    for (AVStream *stream : streams()) {
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_VIDEO ||
            (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0) {
            continue;
        }
        if (!best || rank(*stream) > rank(*best)) {
            best = stream;
        }
    }
    return best;
}

QString MovieInput::describe(int code)
{
    switch (code) {
    case AVERROR_INVALIDDATA:
    case AVERROR(EINVAL):
        return u"is not a media file or is damaged"_s;
    case AVERROR_EXIT:
        return u"reading was cancelled"_s;
    default:
        break;
    }
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text = {};
    av_strerror(code, text.data(), text.size());
    return QString::fromUtf8(text.data());
}

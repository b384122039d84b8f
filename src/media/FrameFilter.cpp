#include "media/FrameFilter.h"

#include "media/FFmpegGenerations.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

#include <QLibrary>

#include <new>

using namespace Qt::StringLiterals;

using namespace FFmpegHandles;

namespace {

/// The functions of libavfilter. It brings thirty libraries with it, which would make every start of the program half
/// as long again for what is seldom asked for; so the program is not linked with it.
class Library {
public:
    static const Library &loaded()
    {
        static const Library library;
        return library;
    }

    decltype(&avfilter_graph_alloc) allocate = nullptr;
    decltype(&avfilter_graph_free) release = nullptr;
    decltype(&avfilter_graph_parse_ptr) parse = nullptr;
    decltype(&avfilter_graph_config) configure = nullptr;
    decltype(&av_buffersrc_add_frame) send = nullptr;
    decltype(&av_buffersink_get_frame) receive = nullptr;

    bool isWhole() const { return allocate && release && parse && configure && send && receive; }

private:
    Library() : file_(u"avfilter"_s, LIBAVFILTER_VERSION_MAJOR)
    {
        resolve(allocate, "avfilter_graph_alloc");
        resolve(release, "avfilter_graph_free");
        resolve(parse, "avfilter_graph_parse_ptr");
        resolve(configure, "avfilter_graph_config");
        resolve(send, "av_buffersrc_add_frame");
        resolve(receive, "av_buffersink_get_frame");
    }
    template<typename Function>
    void resolve(Function &function, const char *name)
    {
        function = reinterpret_cast<Function>(file_.resolve(name));
    }

    QLibrary file_;
};

struct FreeGraph {
    void operator()(AVFilterGraph *graph) const { Library::loaded().release(&graph); }
};
using Graph = std::unique_ptr<AVFilterGraph, FreeGraph>;

Frame made(Frame frame)
{
    if (!frame) {
        throw std::bad_alloc();
    }
    return frame;
}

/// The frame as the first and only one of a movie.
QByteArray sourceOf(const AVFrame &frame)
{
    return "buffer=time_base=1/25:frame_rate=25:video_size=" + QByteArray::number(frame.width) + "x" +
           QByteArray::number(frame.height) + ":pix_fmt=" + QByteArray::number(frame.format) +
           FFmpegGenerations::colorsOfSource(frame);
}

} // namespace

Result<Frame> filtered(const AVFrame &frame, const QByteArray &filters)
{
    const Library &library = Library::loaded();
    if (!library.isWhole()) {
        return failure(u"needs libavfilter, which is missing"_s);
    }
    const Graph graph(library.allocate());
    Frame source = made(Frame(av_frame_clone(&frame)));
    Frame result = made(Frame(av_frame_alloc()));
    if (!graph) {
        throw std::bad_alloc();
    }
    graph->nb_threads = 1; // the caller has as many as there are cores
    source->pts = 0;
    const QByteArray chain = sourceOf(frame) + ',' + filters + ",buffersink";
    int code = library.parse(graph.get(), chain.constData(), nullptr, nullptr, nullptr);
    if (code >= 0) {
        AVFilterContext *first = graph->filters[0];
        AVFilterContext *last = graph->filters[graph->nb_filters - 1]; // further ones may be put in between
        code = library.configure(graph.get(), nullptr);
        code = code < 0 ? code : library.send(first, source.get());
        code = code < 0 ? code : library.send(first, nullptr);
        code = code < 0 ? code : library.receive(last, result.get());
    }
    if (code == AVERROR(ENOMEM)) {
        throw std::bad_alloc();
    }
    if (code < 0) {
        return failure(u"cannot be filtered by "_s + QString::fromLatin1(filters));
    }
    return result;
}

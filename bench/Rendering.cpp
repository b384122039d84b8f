// What the parts of making a collage cost beside its frames; run by bench/rendering.

#include "collage/CollageSettings.h"
#include "platform/threads/InlinePainting.h"
#include "render/CollageLayout.h"
#include "render/CollagePainter.h"
#include "render/CollagePreview.h"
#include "render/CollageTexts.h"
#include "render/ImageEncoder.h"
#include "render/ImageFormats.h"
#include "render/TextBlock.h"

#include <QGuiApplication>
#include <QRandomGenerator>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

const QString &heading()
{
    static const QString text = u"A line of facts about the movie\n"_s.repeated(8);
    return text;
}

CollageSettings collage(std::int32_t side)
{
    CollageSettings settings;
    settings.rowNumber = settings.columeNumber = side;
    settings.gridWidth = 320.0;
    settings.gridHeight = 180.0;
    settings.endPoint = 120.0;
    return settings;
}

/// Some detail and some noise, as movies have.
QImage picture(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int noise = static_cast<int>(random.bounded(16U));
            image.setPixel(x, y, qRgb(x % 240 + noise, y % 240 + noise, (x + y) % 240 + noise));
        }
    }
    return image;
}

CollagePainter painterOf(const CollageSettings &settings)
{
    const TextStyle style{Qt::white, TextBlock::systemFont()};
    return {settings, {style, style}, {.metadataBits = 1021}, heading()};
}

void layOut(benchmark::State &state)
{
    const CollageLayout layout(collage(static_cast<std::int32_t>(state.range(0))));
    const auto side = static_cast<std::int32_t>(state.range(0));
    while (state.KeepRunning()) {
        for (std::int32_t tile = 0; tile < side * side; ++tile) {
            benchmark::DoNotOptimize(layout.pictureRect(layout.tileRect(tile / side, tile % side)));
            benchmark::DoNotOptimize(layout.tileTime(tile));
        }
    }
}

/// Of frames as wide as given: those of the tool have the movie's size, those decoded here the tile's.
void paint(benchmark::State &state, bool isShadowed)
{
    const auto width = static_cast<int>(state.range(0));
    QImage frame = picture({width, width * 9 / 16});
    CollageSettings settings = collage(4);
    settings.gridShadowed = isShadowed;
    const CollagePainter painter = painterOf(settings);
    const CancelFlag never{false};
    while (state.KeepRunning()) {
        QImage canvas = painter.makeCanvas();
        painter.paint(
            canvas, [&frame](std::int64_t, double) { return frame; }, never);
        benchmark::DoNotOptimize(canvas.constBits());
    }
}

void setText(benchmark::State &state)
{
    while (state.KeepRunning()) {
        const TextBlock block(heading(), TextBlock::systemFont(), {1400.0, 900.0});
        benchmark::DoNotOptimize(block.size());
    }
}

void encode(benchmark::State &state)
{
    const QImage image = picture({1332, 892});
    const QString extension = imageFormats.at(static_cast<std::size_t>(state.range(0))).extension.toString();
    state.SetLabel(extension.toStdString());
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(GlobalFun::dataRepresentationOfType(image, extension));
    }
}

/// The editor's, which is drawn at every keystroke.
void preview(benchmark::State &state)
{
    const QSize size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const QImage placeholder = previewPlaceholder(1.0);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(renderCollagePreview(size, 1.0, collage(20), heading(), placeholder).constBits());
    }
}

} // namespace

int main(int argc, char **argv)
{
    paintInline();
    const QGuiApplication application(argc, argv);
    benchmark::RegisterBenchmark("layout of so many tiles a side", layOut)->Arg(4)->Arg(100);
    benchmark::RegisterBenchmark("painting 4 x 4 frames of this width", paint, false)->Arg(320)->Arg(1920);
    benchmark::RegisterBenchmark("painting the same with shadows", paint, true)->Arg(320)->Arg(1920);
    benchmark::RegisterBenchmark("eight lines of text", setText);
    benchmark::RegisterBenchmark("encoding 4 x 4 tiles", encode)->DenseRange(0, std::ssize(imageFormats) - 1);
    benchmark::RegisterBenchmark("preview of 20 x 20 tiles", preview)
        ->Args({352, 224})
        ->Args({900, 600})
        ->Args({1920, 1080});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

#include "render/TextBlock.h"

#include <QFontDatabase>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int fontPixels = 12;
// The toolkit keeps text positions in 26.6 fixed point; a wider line would overflow it.
constexpr double widestLine = 1'000'000.0;

QString withLineSeparators(QString text)
{
    if (text.endsWith(u'\n')) {
        text.chop(1);
    }
    return text.replace(u'\n', QChar(QChar::LineSeparator));
}

} // namespace

TextBlock::TextBlock(const QString &text, const QFont &font, QSizeF box) : layout_(withLineSeparators(text), font)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);
    if (layout_.text().isEmpty() || !(box.width() > 0.0)) { // a NaN width is none either
        return;
    }
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(std::min(box.width(), widestLine));
        // Whole pixels keep every line as sharp as the first.
        const double height = std::ceil(line.height());
        if (used_.height() + height > box.height()) {
            break;
        }
        line.setPosition({0.0, used_.height()});
        used_ = {std::max(used_.width(), std::ceil(line.naturalTextWidth())), used_.height() + height};
        ++lines_;
    }
    layout_.endLayout();
}

void TextBlock::draw(QPainter &painter, QPointF origin) const
{
    for (int index = 0; index < lines_; ++index) {
        layout_.lineAt(index).draw(&painter, origin);
    }
}

QFont TextBlock::systemFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(fontPixels);
    // Without hinting and with grey-scale smoothing, glyphs look the same on every screen and without one.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

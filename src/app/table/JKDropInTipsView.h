#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

/// The hint over an empty list: a dashed square with an arrow and a line of text, brighter while files are held over
/// it. Its colours are its own, whatever the theme. Made and owned by the table; main thread. Lengths are points. What
/// the program does not call belongs to the vocabulary.
class JKDropInTipsView final : public QWidget {
    Q_OBJECT

public:
    explicit JKDropInTipsView(QWidget *parent = nullptr);

    /// Back to the usual colours and lengths; the text stays.
    void setDefaultValue();

    QString strPromot() const { return promot_; }
    void setStrPromot(const QString &text);

    QColor clrNorBg() const { return normal_.background; }
    void setClrNorBg(const QColor &color);
    QColor clrHlBg() const { return highlight_.background; }
    void setClrHlBg(const QColor &color);
    QColor clrNorArrowFill() const { return normal_.arrow; }
    void setClrNorArrowFill(const QColor &color);
    QColor clrHlArrowFill() const { return highlight_.arrow; }
    void setClrHlArrowFill(const QColor &color);

    double fArrowWidth() const { return arrowWidth_; }
    void setFArrowWidth(double width);
    /// The side of the square.
    double fArrowRectWidth() const { return arrowRectWidth_; }
    void setFArrowRectWidth(double width);

    bool bHighlighted() const { return highlighted_; }
    void setBHighlighted(bool highlighted);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Colors {
        QColor background;
        QColor arrow;
    };

    template<typename Value>
    void change(Value &value, const Value &to);
    void drawText(QPainter &painter, const QRectF &square, const QColor &color) const;

    QString promot_;
    Colors normal_;
    Colors highlight_;
    double arrowWidth_ = 0.0;
    double arrowRectWidth_ = 0.0;
    bool highlighted_ = false;
};

#pragma once

#include <QList>
#include <QWidget>

class QAction;
class QHBoxLayout;
class QLabel;

/// The line at the bottom of the main window: what has come of the last thing at the left, what the list holds at the
/// right. Main thread.
class StatusLine final : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    /// Shows what has come of something, until the next time or clear(). The details are in the tooltip.
    void tell(const QString &text, const QString &details = {});
    void clear() { tell({}); }
    /// Buttons behind that text, which go with it. The actions are their maker's.
    void offer(const QList<QAction *> &actions);
    /// Shows what the list holds, beside that.
    void summarize(const QString &text);

private:
    QHBoxLayout *offers_;
    QLabel *lblStatus_;
    QLabel *lblSummary_;
};

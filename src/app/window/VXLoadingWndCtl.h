#pragma once

#include <QDialog>
#include <QImage>

#include <memory>

class NotificationCenter;

namespace Ui {
class VXLoadingWndCtl;
}

/// The sheet that hangs over the main window while movies are loaded or collages made: two lines, a bar, the picture in
/// progress, and a cancel button. It closes only when the job says so: Escape and the close button are a cancel too.
/// Made with the main window and used for every job; main thread.
class VXLoadingWndCtl final : public QDialog {
    Q_OBJECT

public:
    /// Posted at each cancel. The job hears it and ends the sheet when it has stopped.
    static constexpr QLatin1StringView canceledNotification{"VXLoadingPrgWndCanceledNotification"};

    /// The centre must outlive the sheet.
    explicit VXLoadingWndCtl(NotificationCenter &center, QWidget *parent = nullptr);
    ~VXLoadingWndCtl() override;

    /// 0: loading, without a picture. Anything else: export, with one.
    int model() const { return layoutModel_; }
    void setModel(int model);

    /// Opens the sheet over the parent, whose child it becomes, and returns at once.
    void startLoading(const QString &text, QWidget *parent);
    /// `progress` from 0 to 1; `ing` is the file in work. A null image keeps the one shown.
    void updateProgress(double progress, const QString &main, const QString &ing, const QImage &image);
    /// How much longer it takes, at the end of the second line; empty for nothing.
    void setRemaining(const QString &text);
    /// How far the whole export is, from 0 to 1, under the bar of the movie in work; the text says which one that is.
    void setOverall(double progress, const QString &text);
    /// Closes the sheet.
    void endLoading();

    /// Posts the notification; nothing else.
    void cancelDown();
    /// The same: Escape does not close the sheet.
    void reject() override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void showImage(const QImage &image);

    NotificationCenter &center_;
    const std::unique_ptr<Ui::VXLoadingWndCtl> ui_;
    int layoutModel_ = 0;
};

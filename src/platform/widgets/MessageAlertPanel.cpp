#include "platform/widgets/MessageAlertPanel.h"

#include "platform/Log.h"
#include "platform/MakeForQt.h"
#include "platform/threads/MainQueue.h"
#include "platform/widgets/FrontWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QThread>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// An answer on its way from the main thread to the thread that waits for it. The first one given counts.
class PendingAnswer {
public:
    void give(int index)
    {
        {
            const std::scoped_lock lock(mutex_);
            answer_ = answer_.value_or(index);
        }
        given_.notify_one();
    }
    int wait()
    {
        std::unique_lock lock(mutex_);
        given_.wait(lock, [this] { return answer_.has_value(); });
        return *answer_;
    }

private:
    std::mutex mutex_;
    std::condition_variable given_;
    std::optional<int> answer_;
};

/// The question of a waiting thread. The thread goes on even if there is never an answer.
class Question {
public:
    Question(std::shared_ptr<PendingAnswer> pending, int otherwise) :
        pending_(std::move(pending)), otherwise_(otherwise)
    {
    }
    ~Question() { pending_->give(otherwise_); }
    Question(const Question &) = delete;
    Question &operator=(const Question &) = delete;

    void answer(int index) { pending_->give(index); }

private:
    std::shared_ptr<PendingAnswer> pending_;
    int otherwise_;
};

int lastOf(const QStringList &buttons)
{
    return static_cast<int>(buttons.size()) - 1;
}

/// A line of this many characters is easy to read; by itself the box would be as narrow as its title.
constexpr int lineLength = 50;

/// Texts are shown as they are: a path may look like markup.
void setPlainTexts(QMessageBox &box, const QString &title, const QString &message)
{
    box.setTextFormat(Qt::PlainText);
    box.setText(title);
    box.setInformativeText(message);
    if (auto *label = box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_s)) {
        label->setTextFormat(Qt::PlainText);
        label->setMinimumWidth(lineLength * label->fontMetrics().averageCharWidth());
    }
}

void addButtons(QMessageBox &box, const QStringList &buttons)
{
    for (int index = 0; index <= lastOf(buttons); ++index) {
        const bool isRefusal = index > 0 && index == lastOf(buttons);
        QPushButton *button =
            box.addButton(buttons.at(index), isRefusal ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
        if (index == 0) {
            box.setDefaultButton(button);
        }
        box.setEscapeButton(button);
    }
}

/// Belongs to the front window, and goes when it is closed.
QMessageBox *makeBox(const QString &title, const QString &message, const QStringList &buttons)
{
    auto *box = makeForQt<QMessageBox>(frontWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    setPlainTexts(*box, title, message);
    addButtons(*box, buttons);
    return box;
}

} // namespace

MessageAlertPanel::MessageAlertPanel(MainQueue &mainQueue) : mainQueue_(mainQueue) {}

int MessageAlertPanel::run(const QString &title, const QString &message, const QStringList &buttons)
{
    if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
        qCCritical(lcTessarine) << "the main thread may not wait for an answer";
        show(title, message, buttons, [](int) {});
        return lastOf(buttons);
    }
    const auto pending = std::make_shared<PendingAnswer>();
    mainQueue_.async([this, title, message, buttons, question = std::make_shared<Question>(pending, lastOf(buttons))] {
        show(title, message, buttons, [question](int answer) { question->answer(answer); });
    });
    return pending->wait();
}

void MessageAlertPanel::show(const QString &title, const QString &message, const QStringList &buttons,
                             std::function<void(int)> answered)
{
    QMessageBox *box = makeBox(title, message, buttons);
    box->setIcon(QMessageBox::Warning);
    QObject::connect(box, &QDialog::finished, box, [box, answered = std::move(answered), last = lastOf(buttons)] {
        const auto index = static_cast<int>(box->buttons().indexOf(box->clickedButton()));
        answered(index < 0 ? last : index); // no button when the box was closed by the window's own means
    });
    box->open();
}

void MessageAlertPanel::tell(const QString &title, const QString &message, const QString &button)
{
    QMessageBox *box = makeBox(title, message, {button});
    const int size = box->style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, box);
    box->setIconPixmap(QApplication::windowIcon().pixmap(QSize(size, size), box->devicePixelRatioF()));
    box->open();
}

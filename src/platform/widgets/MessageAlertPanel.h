#pragma once

#include "platform/desktop/AlertPanel.h"

class MainQueue;

/// Alerts as message boxes over the front window. Made on the main thread.
class MessageAlertPanel final : public AlertPanel {
public:
    /// The queue is the main thread's and must outlive this.
    explicit MessageAlertPanel(MainQueue &mainQueue);

    /// When the question can no longer be answered, because its window or the queue has gone, the answer is the last
    /// button.
    int run(const QString &title, const QString &message, const QStringList &buttons) override;
    void show(const QString &title, const QString &message, const QStringList &buttons,
              std::function<void(int answer)> answered) override;
    /// With the program's icon instead of the warning.
    void tell(const QString &title, const QString &message, const QString &button) override;

private:
    MainQueue &mainQueue_;
};

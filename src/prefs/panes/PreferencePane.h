#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

#include <memory>

/// One page of the preferences window: what the window has to know of it, and the loading of its view when that is
/// first asked for. Owned by the list that the window was given; main thread.
class PreferencePane {
public:
    PreferencePane() = default;
    virtual ~PreferencePane() = default;
    PreferencePane(const PreferencePane &) = delete;
    PreferencePane &operator=(const PreferencePane &) = delete;

    /// The name under which the pane's selection and size are remembered.
    virtual QString identifier() const = 0;
    virtual QIcon toolbarItemImage() const = 0;
    virtual QString toolbarItemLabel() const = 0;

    /// Writes what the controls show into the store; false refuses to leave the pane. Of a pane whose view has not been
    /// loaded there is nothing to write.
    bool commitEditing() { return page_ == nullptr || commitControls(); }
    /// The window does not show the pane any more.
    virtual void viewDidDisappear() {}

    /// The pane's controls, filled from the store when this is first called. Whoever puts it into a window takes it out
    /// again before that window goes.
    QWidget &view();

protected:
    /// Makes the controls in the empty view.
    virtual void loadView(QWidget &view) = 0;
    /// Fills them from the store, once.
    virtual void awakeFromNib() = 0;
    virtual bool commitControls() = 0;

private:
    std::unique_ptr<QWidget> page_;
};

#pragma once

#include "prefs/panes/PreferencePane.h"

#include <QObject>

#include <vector>

class QActionGroup;
class QMainWindow;
class UserDefaults;
namespace Ui {
class MASPreferencesWindow;
}

/// The preferences window: shows one of its panes at a time, chosen in the toolbar. It knows nothing of what the panes
/// hold. Made once by the application; main thread. What the program does not call belongs to the vocabulary.
class MASPreferencesWindowController final : public QObject {
    Q_OBJECT

public:
    using Panes = std::vector<std::unique_ptr<PreferencePane>>;

    /// Keeps this very list, not a copy: panes appended later appear too. Without a title the window has the selected
    /// pane's label for one. List and store must outlive this.
    MASPreferencesWindowController(const Panes &panes, const QString &title, UserDefaults &defaults);
    ~MASPreferencesWindowController() override;

    /// The window, not shown yet by this. At the first call it is made, put where it was in an earlier run, and the
    /// pane of then is selected, else the first one.
    QMainWindow &window();
    /// Shows the window, and brings it to the front.
    void showWindow();

    const Panes &viewControllers() const { return panes_; }
    /// Null before the window is loaded.
    PreferencePane *selectedViewController() const { return selected_; }

    /// Shows another pane, unless the one that is shown refuses to be left; false then, and when there is no such pane.
    bool selectControllerAtIndex(std::size_t index);
    /// The pane after or before the selected one; behind the last comes the first.
    void goNextTab();
    void goPreviousTab();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void loadWindow();
    void addShortcuts();
    void restoreTopLeft();
    void selectRememberedPane();
    /// Gives every pane its toolbar item, those that were appended since the last time too.
    void completeToolbar();
    void itemToggled(std::size_t index, bool on);
    void step(std::size_t distance);
    std::size_t selectedIndex() const;
    void leaveSelectedPane();
    void showPane(PreferencePane &pane);
    /// What the window takes in addition to its pane.
    QSize sizeBeside() const;
    QSize sizeFor(PreferencePane &pane) const;
    int widestPane() const;

    const Panes &panes_;
    const QString title_;
    UserDefaults &defaults_;
    std::unique_ptr<QMainWindow> preferencesWindow_;
    std::unique_ptr<Ui::MASPreferencesWindow> ui_;
    QActionGroup *items_ = nullptr; ///< the toolbar's, in the order of the panes; the window owns it
    PreferencePane *selected_ = nullptr;
};

#include "prefs/panes/MASPreferencesWindowController.h"

#include "Shared/PreferenceKeys.h"
#include "platform/MakeForQt.h"
#include "platform/store/GeometryText.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/WindowPlacement.h"
#include "ui_MASPreferencesWindow.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace {

QSize leastSize(const QWidget &view)
{
    return view.minimumSizeHint().expandedTo(view.minimumSize());
}

QSize naturalSize(const QWidget &view)
{
    return view.sizeHint().expandedTo(leastSize(view));
}

} // namespace

MASPreferencesWindowController::MASPreferencesWindowController(const Panes &panes, const QString &title,
                                                               UserDefaults &defaults) :
    panes_(panes), title_(title), defaults_(defaults)
{
}

MASPreferencesWindowController::~MASPreferencesWindowController()
{
    if (selected_ != nullptr) {
        leaveSelectedPane(); // the view is the pane's
    }
}

QMainWindow &MASPreferencesWindowController::window()
{
    if (!preferencesWindow_) {
        loadWindow();
    }
    return *preferencesWindow_;
}

void MASPreferencesWindowController::showWindow()
{
    keepOnScreen(window());
    window().show();
    window().raise();
    window().activateWindow();
}

void MASPreferencesWindowController::loadWindow()
{
    preferencesWindow_ = std::make_unique<QMainWindow>();
    ui_ = std::make_unique<Ui::MASPreferencesWindow>();
    ui_->setupUi(preferencesWindow_.get());
    preferencesWindow_->setWindowTitle(title_);
    // The program ends with its main window, whether this one is open or not.
    preferencesWindow_->setAttribute(Qt::WA_QuitOnClose, false);
    items_ = makeForQt<QActionGroup>(preferencesWindow_.get());
    addShortcuts();
    restoreTopLeft();
    selectRememberedPane();
    preferencesWindow_->installEventFilter(this);
}

void MASPreferencesWindowController::addShortcuts()
{
    const auto add = [this](const QKeySequence &keys, auto action) {
        QObject::connect(makeForQt<QShortcut>(keys, preferencesWindow_.get()), &QShortcut::activated, this, action);
    };
    add(Qt::Key_Escape, [this] { preferencesWindow_->close(); });
    add(QKeySequence::Close, [this] { preferencesWindow_->close(); });
    add(Qt::CTRL | Qt::Key_PageDown, [this] { goNextTab(); });
    add(Qt::CTRL | Qt::Key_PageUp, [this] { goPreviousTab(); });
}

void MASPreferencesWindowController::restoreTopLeft()
{
    const auto topLeft = GeometryText::toPoint(defaults_.textValue(PreferenceKeys::preferencesTopLeft));
    const auto screens = QGuiApplication::screens();
    const bool isOnScreen = topLeft && std::ranges::any_of(screens, [&topLeft](const QScreen *screen) {
                                return screen->availableGeometry().contains(*topLeft);
                            });
    if (isOnScreen) {
        preferencesWindow_->move(*topLeft);
    }
}

void MASPreferencesWindowController::selectRememberedPane()
{
    const QString remembered = defaults_.textValue(PreferenceKeys::preferencesSelection);
    const auto pane = std::ranges::find(panes_, remembered, &PreferencePane::identifier);
    selectControllerAtIndex(pane == panes_.end() ? 0 : static_cast<std::size_t>(pane - panes_.begin()));
}

void MASPreferencesWindowController::completeToolbar()
{
    for (auto index = static_cast<std::size_t>(items_->actions().size()); index < panes_.size(); ++index) {
        const PreferencePane &pane = *panes_.at(index);
        QAction *item = ui_->toolBar->addAction(pane.toolbarItemImage(), pane.toolbarItemLabel());
        item->setObjectName(pane.identifier());
        item->setCheckable(true);
        items_->addAction(item);
        connect(item, &QAction::toggled, this, [this, index](bool on) { itemToggled(index, on); });
    }
}

/// Not triggered(), which is not sent when a screen reader toggles the button.
void MASPreferencesWindowController::itemToggled(std::size_t index, bool on)
{
    if (on) {
        selectControllerAtIndex(index);
    } else if (selected_ == panes_.at(index).get()) { // toggled off, or about to be left
        QMetaObject::invokeMethod(
            items_, [this] { items_->actions().at(static_cast<qsizetype>(selectedIndex()))->setChecked(true); },
            Qt::QueuedConnection);
    }
}

bool MASPreferencesWindowController::selectControllerAtIndex(std::size_t index)
{
    window();
    completeToolbar();
    if (index >= panes_.size()) {
        return false;
    }
    PreferencePane &wanted = *panes_.at(index);
    if (selected_ == &wanted) {
        return true;
    }
    if (selected_ != nullptr && !selected_->commitEditing()) {
        items_->actions().at(static_cast<qsizetype>(selectedIndex()))->setChecked(true);
        return false;
    }
    if (selected_ != nullptr) {
        leaveSelectedPane();
    }
    selected_ = &wanted;
    items_->actions().at(static_cast<qsizetype>(index))->setChecked(true);
    defaults_.setText(PreferenceKeys::preferencesSelection, wanted.identifier());
    showPane(wanted);
    return true;
}

void MASPreferencesWindowController::goNextTab()
{
    step(1);
}

void MASPreferencesWindowController::goPreviousTab()
{
    step(panes_.empty() ? 0 : panes_.size() - 1);
}

void MASPreferencesWindowController::step(std::size_t distance)
{
    window();
    if (selected_ != nullptr) {
        selectControllerAtIndex((selectedIndex() + distance) % panes_.size());
    }
}

std::size_t MASPreferencesWindowController::selectedIndex() const
{
    const auto pane = std::ranges::find(panes_, selected_, &std::unique_ptr<PreferencePane>::get);
    return static_cast<std::size_t>(pane - panes_.begin());
}

void MASPreferencesWindowController::leaveSelectedPane()
{
    PreferencePane *left = std::exchange(selected_, nullptr);
    left->view().removeEventFilter(this);
    preferencesWindow_->takeCentralWidget();
    left->view().hide();
    left->view().setParent(nullptr);
    left->viewDidDisappear();
}

void MASPreferencesWindowController::showPane(PreferencePane &pane)
{
    const QSize size = sizeFor(pane);
    if (title_.isEmpty()) {
        preferencesWindow_->setWindowTitle(pane.toolbarItemLabel());
    }
    preferencesWindow_->setCentralWidget(&pane.view());
    pane.view().show();
    preferencesWindow_->layout()->activate(); // or the window would keep the least size of the pane before
    preferencesWindow_->resize(size + sizeBeside());
    keepOnScreen(*preferencesWindow_);
    pane.view().installEventFilter(this);
}

QSize MASPreferencesWindowController::sizeBeside() const
{
    return {0, ui_->toolBar->sizeHint().height()};
}

QSize MASPreferencesWindowController::sizeFor(PreferencePane &pane) const
{
    const QString key = PreferenceKeys::preferencesFrame(pane.identifier());
    const auto remembered = GeometryText::toRect(defaults_.textValue(key));
    const QSize natural(widestPane(), naturalSize(pane.view()).height());
    const QSize largest = preferencesWindow_->screen()->availableSize() - sizeBeside();
    return (remembered ? remembered->size() : natural).boundedTo(largest).expandedTo(leastSize(pane.view()));
}

int MASPreferencesWindowController::widestPane() const
{
    int widest = ui_->toolBar->sizeHint().width();
    for (const auto &pane : panes_) {
        widest = std::max(widest, naturalSize(pane->view()).width());
    }
    return widest;
}

bool MASPreferencesWindowController::eventFilter(QObject *watched, QEvent *event)
{
    const bool isWindow = watched == preferencesWindow_.get();
    if (isWindow && event->type() == QEvent::Close && selected_ != nullptr && !selected_->commitEditing()) {
        event->ignore();
        return true;
    }
    if (isWindow && event->type() == QEvent::Move) {
        defaults_.setText(PreferenceKeys::preferencesTopLeft, GeometryText::fromPoint(preferencesWindow_->pos()));
    }
    if (!isWindow && event->type() == QEvent::Resize && selected_ != nullptr && watched == &selected_->view()) {
        defaults_.setText(PreferenceKeys::preferencesFrame(selected_->identifier()),
                          GeometryText::fromRect(selected_->view().rect()));
    }
    return QObject::eventFilter(watched, event);
}

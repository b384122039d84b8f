#include "prefs/panes/MASPreferencesWindowController.h"

#include "Shared/PreferenceKeys.h"
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

MASPreferencesWindowController::MASPreferencesWindowController(const Panes &paneList, const QString &windowTitle,
                                                               UserDefaults &store) :
    panes(paneList), title(windowTitle), defaults(store)
{
}

MASPreferencesWindowController::~MASPreferencesWindowController()
{
    if (selected != nullptr) {
        leaveSelectedPane(); // the view is the pane's
    }
}

QMainWindow &MASPreferencesWindowController::window()
{
    if (!preferencesWindow) {
        loadWindow();
    }
    return *preferencesWindow;
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
    preferencesWindow = std::make_unique<QMainWindow>();
    ui = std::make_unique<Ui::MASPreferencesWindow>();
    ui->setupUi(preferencesWindow.get());
    preferencesWindow->setWindowTitle(title);
    // The program ends with its main window, whether this one is open or not.
    preferencesWindow->setAttribute(Qt::WA_QuitOnClose, false);
    items = new QActionGroup(preferencesWindow.get());
    addShortcuts();
    restoreTopLeft();
    selectRememberedPane();
    preferencesWindow->installEventFilter(this);
}

void MASPreferencesWindowController::addShortcuts()
{
    const auto add = [this](const QKeySequence &keys, auto action) {
        QObject::connect(new QShortcut(keys, preferencesWindow.get()), &QShortcut::activated, this, action);
    };
    add(Qt::Key_Escape, [this] { preferencesWindow->close(); });
    add(QKeySequence::Close, [this] { preferencesWindow->close(); });
    add(Qt::CTRL | Qt::Key_PageDown, [this] { goNextTab(); });
    add(Qt::CTRL | Qt::Key_PageUp, [this] { goPreviousTab(); });
}

void MASPreferencesWindowController::restoreTopLeft()
{
    const auto topLeft = GeometryText::toPoint(defaults.textValue(PreferenceKeys::preferencesTopLeft));
    const auto screens = QGuiApplication::screens();
    const bool isOnScreen = topLeft && std::ranges::any_of(screens, [&topLeft](const QScreen *screen) {
                                return screen->availableGeometry().contains(*topLeft);
                            });
    if (isOnScreen) {
        preferencesWindow->move(*topLeft);
    }
}

void MASPreferencesWindowController::selectRememberedPane()
{
    const QString remembered = defaults.textValue(PreferenceKeys::preferencesSelection);
    const auto pane = std::ranges::find(panes, remembered, &PreferencePane::identifier);
    selectControllerAtIndex(pane == panes.end() ? 0 : static_cast<std::size_t>(pane - panes.begin()));
}

void MASPreferencesWindowController::completeToolbar()
{
    for (auto index = static_cast<std::size_t>(items->actions().size()); index < panes.size(); ++index) {
        const PreferencePane &pane = *panes.at(index);
        QAction *item = ui->toolBar->addAction(pane.toolbarItemImage(), pane.toolbarItemLabel());
        item->setObjectName(pane.identifier());
        item->setCheckable(true);
        items->addAction(item);
        connect(item, &QAction::toggled, this, [this, index](bool on) { itemToggled(index, on); });
    }
}

/// Not at triggered(): a screen reader toggles a button without triggering anything.
void MASPreferencesWindowController::itemToggled(std::size_t index, bool on)
{
    if (on) {
        selectControllerAtIndex(index);
    } else if (selected == panes.at(index).get()) { // toggled off, or about to be left
        QMetaObject::invokeMethod(
            items, [this] { items->actions().at(static_cast<qsizetype>(selectedIndex()))->setChecked(true); },
            Qt::QueuedConnection);
    }
}

bool MASPreferencesWindowController::selectControllerAtIndex(std::size_t index)
{
    window();
    completeToolbar();
    if (index >= panes.size()) {
        return false;
    }
    PreferencePane &wanted = *panes.at(index);
    if (selected == &wanted) {
        return true;
    }
    if (selected != nullptr && !selected->commitEditing()) {
        items->actions().at(static_cast<qsizetype>(selectedIndex()))->setChecked(true);
        return false;
    }
    if (selected != nullptr) {
        leaveSelectedPane();
    }
    selected = &wanted;
    items->actions().at(static_cast<qsizetype>(index))->setChecked(true);
    defaults.setText(PreferenceKeys::preferencesSelection, wanted.identifier());
    showPane(wanted);
    return true;
}

void MASPreferencesWindowController::goNextTab()
{
    step(1);
}

void MASPreferencesWindowController::goPreviousTab()
{
    step(panes.empty() ? 0 : panes.size() - 1);
}

void MASPreferencesWindowController::step(std::size_t distance)
{
    window();
    if (selected != nullptr) {
        selectControllerAtIndex((selectedIndex() + distance) % panes.size());
    }
}

std::size_t MASPreferencesWindowController::selectedIndex() const
{
    const auto pane = std::ranges::find(panes, selected, &std::unique_ptr<PreferencePane>::get);
    return static_cast<std::size_t>(pane - panes.begin());
}

void MASPreferencesWindowController::leaveSelectedPane()
{
    PreferencePane *left = std::exchange(selected, nullptr);
    left->view().removeEventFilter(this);
    preferencesWindow->takeCentralWidget();
    left->view().hide();
    left->view().setParent(nullptr);
    left->viewDidDisappear();
}

void MASPreferencesWindowController::showPane(PreferencePane &pane)
{
    const QSize size = sizeFor(pane);
    if (title.isEmpty()) {
        preferencesWindow->setWindowTitle(pane.toolbarItemLabel());
    }
    preferencesWindow->setCentralWidget(&pane.view());
    pane.view().show();
    preferencesWindow->layout()->activate(); // or the window would keep the least size of the pane before
    preferencesWindow->resize(size + sizeBeside());
    keepOnScreen(*preferencesWindow);
    pane.view().installEventFilter(this);
}

QSize MASPreferencesWindowController::sizeBeside() const
{
    return {0, ui->toolBar->sizeHint().height()};
}

QSize MASPreferencesWindowController::sizeFor(PreferencePane &pane) const
{
    const QString key = PreferenceKeys::preferencesFrame(pane.identifier());
    const auto remembered = GeometryText::toRect(defaults.textValue(key));
    const QSize natural(widestPane(), naturalSize(pane.view()).height());
    const QSize largest = preferencesWindow->screen()->availableSize() - sizeBeside();
    return (remembered ? remembered->size() : natural).boundedTo(largest).expandedTo(leastSize(pane.view()));
}

int MASPreferencesWindowController::widestPane() const
{
    int widest = ui->toolBar->sizeHint().width();
    for (const auto &pane : panes) {
        widest = std::max(widest, naturalSize(pane->view()).width());
    }
    return widest;
}

bool MASPreferencesWindowController::eventFilter(QObject *watched, QEvent *event)
{
    const bool isWindow = watched == preferencesWindow.get();
    if (isWindow && event->type() == QEvent::Close && selected != nullptr && !selected->commitEditing()) {
        event->ignore();
        return true;
    }
    if (isWindow && event->type() == QEvent::Move) {
        defaults.setText(PreferenceKeys::preferencesTopLeft, GeometryText::fromPoint(preferencesWindow->pos()));
    }
    if (!isWindow && event->type() == QEvent::Resize && selected != nullptr && watched == &selected->view()) {
        defaults.setText(PreferenceKeys::preferencesFrame(selected->identifier()),
                         GeometryText::fromRect(selected->view().rect()));
    }
    return QObject::eventFilter(watched, event);
}

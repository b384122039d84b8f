#include "app/table/MyTableView.h"

#include "app/table/DropDelegate.h"
#include "app/table/JKDropInTipsView.h"
#include "app/table/MovieCellDelegate.h"
#include "app/table/RowDrag.h"
#include "app/table/TableReloadDelegate.h"
#include "platform/Log.h"
#include "platform/MakeForQt.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QTimer>

#include <chrono>
#include <ranges>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds hintDelay{100};
constexpr int markHeight = 3; // of the insertion mark
constexpr std::array<int, MovieTableModel::ColumnCount> columnWidths{112, 112, 240, 72, 190};

} // namespace

MyTableView::MyTableView(QWidget *parent) : QTableView(parent)
{
    setItemDelegate(makeForQt<MovieCellDelegate>(this));
    setAcceptDrops(true);
    setDragEnabled(true);
    setDropIndicatorShown(false); // it has its own mark
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    // A heading sorts; the table would select everything as well.
    disconnect(horizontalHeader(), &QHeaderView::sectionPressed, this, nullptr);
    disconnect(horizontalHeader(), &QHeaderView::sectionEntered, this, nullptr);
    fitRowsToFont();
}

void MyTableView::setMovies(MovieTableModel &model)
{
    movies_ = &model;
    setModel(movies_);
    for (int column = 0; column < MovieTableModel::ColumnCount; ++column) {
        setColumnWidth(column, columnWidths.at(static_cast<std::size_t>(column)));
    }
    horizontalHeader()->setSectionResizeMode(MovieTableModel::Title, QHeaderView::Stretch);
}

void MyTableView::fitRowsToFont()
{
    verticalHeader()->setDefaultSectionSize(MovieCellDelegate::rowHeight(fontMetrics()));
}

int MyTableView::rowCount() const
{
    return movies_ ? movies_->rowCount() : 0;
}

// Reloading and the hint

void MyTableView::reloadData()
{
    if (movies_) {
        const MovieList::Movies selected = selectedMovies();
        const QModelIndex current = currentIndex();
        const bool follows = selectionModel()->isSelected(current);
        const MovieList::Movie movie =
            follows ? movies_->movies().at(static_cast<std::size_t>(current.row())) : nullptr;
        movies_->reloadData();
        setInsertion({});
        selectMovies(selected);
        // The arrow keys go on from the same movie if it was selected, else from the same place.
        const auto found = std::ranges::find(movies_->movies(), movie);
        const int row = found != movies_->movies().end() ? static_cast<int>(found - movies_->movies().begin())
                                                         : std::min(current.row(), rowCount() - 1);
        selectionModel()->setCurrentIndex(movies_->index(row, MovieTableModel::Title), QItemSelectionModel::NoUpdate);
    }
    auto *delay = makeForQt<QTimer>(this);
    delay->setSingleShot(true);
    connect(delay, &QTimer::timeout, this, &MyTableView::rowsDrawn);
    connect(delay, &QTimer::timeout, delay, &QObject::deleteLater);
    delay->start(hintDelay);
}

void MyTableView::rowsDrawn()
{
    refreshState(false);
    if (reloadDelegate) {
        reloadDelegate->tableViewReloaded(*this);
    }
}

void MyTableView::refreshState(bool highlighted)
{
    if (!dropTipView) {
        dropTipView = makeForQt<JKDropInTipsView>(this);
        //% "Drop movies or folders here"
        dropTipView->setStrPromot(qtTrId("library_drag_tip"));
    }
    dropTipView->setGeometry(rect());
    dropTipView->setBHighlighted(highlighted);
    dropTipView->setVisible(!movies_ || movies_->allMovies().empty());
    dropTipView->raise();
}

// Selection

std::vector<int> MyTableView::selectedRows() const
{
    std::vector<int> rows;
    if (selectionModel()) {
        for (const QModelIndex &index : selectionModel()->selectedRows()) {
            rows.push_back(index.row());
        }
    }
    std::ranges::sort(rows);
    return rows;
}

MovieList::Movies MyTableView::selectedMovies() const
{
    MovieList::Movies selected;
    for (const int row : selectedRows()) {
        selected.push_back(movies_->movies().at(static_cast<std::size_t>(row)));
    }
    return selected;
}

void MyTableView::selectRowAlone(int row)
{
    const QModelIndex index = movies_->index(std::min(row, rowCount() - 1), MovieTableModel::Title);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void MyTableView::selectMovies(const MovieList::Movies &selected)
{
    const std::unordered_set<MovieList::Movie> wanted(selected.begin(), selected.end());
    QItemSelection selection;
    int begin = -1; // of the current stretch of wanted rows
    for (int row = 0; row <= rowCount(); ++row) {
        const bool isWanted = row < rowCount() && wanted.contains(movies_->movies()[static_cast<std::size_t>(row)]);
        if (isWanted && begin < 0) {
            begin = row;
        } else if (!isWanted && begin >= 0) {
            selection.select(movies_->index(begin, 0), movies_->index(row - 1, MovieTableModel::ColumnCount - 1));
            begin = -1;
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

// Events

bool MyTableView::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return viewportEvent(event); // over the heading or the frame: as over the rows
    default:
        return QTableView::event(event);
    }
}

void MyTableView::keyPressEvent(QKeyEvent *event)
{
    qCDebug(lcTessarine).noquote() << u"key down...:" + QString::number(event->nativeScanCode());
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (reloadDelegate) {
            reloadDelegate->deleteFileDown(*this);
        }
        return;
    case Qt::Key_Space:
        if (reloadDelegate) {
            reloadDelegate->spaceKeyDown(*this);
        }
        if (typed_.isValid() && !typed_.hasExpired(QApplication::keyboardInputInterval())) {
            keyboardSearch(u" "_s); // within a name
        }
        return;
    default:
        QTableView::keyPressEvent(event);
    }
}

void MyTableView::keyboardSearch(const QString &text)
{
    selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(MovieTableModel::Title),
                                      QItemSelectionModel::NoUpdate); // where the names are
    QTableView::keyboardSearch(text);
    typed_.start();
}

QModelIndex MyTableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const bool toEnd = action == MoveHome || action == MoveEnd;
    return QTableView::moveCursor(action, toEnd ? modifiers | Qt::ControlModifier : modifiers);
}

void MyTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (!insertion_ || rowCount() == 0) {
        return;
    }
    const int last = rowCount() - 1;
    const int edge =
        *insertion_ <= last ? rowViewportPosition(*insertion_) : rowViewportPosition(last) + rowHeight(last);
    const int top = std::clamp(edge - markHeight / 2, 0, std::max(0, viewport()->height() - markHeight));
    QPainter(viewport()).fillRect(0, top, viewport()->width(), markHeight, palette().highlight());
}

void MyTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    if (dropTipView) {
        dropTipView->setGeometry(rect());
    }
}

void MyTableView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fitRowsToFont();
    }
}

// Drops

MyTableView::DropSpot MyTableView::spotAt(int y) const
{
    const int row = rowAt(y);
    if (row < 0) {
        return {rowCount(), true};
    }
    // The middle third is the row itself, the rest lies between it and its neighbours.
    const int within = y - rowViewportPosition(row);
    const int third = rowHeight(row) / 3;
    if (within < third) {
        return {row, true};
    }
    return within >= rowHeight(row) - third ? DropSpot{row + 1, true} : DropSpot{row, false};
}

int MyTableView::gapAt(int y) const
{
    const int row = rowAt(y);
    if (row < 0) {
        return rowCount();
    }
    return y - rowViewportPosition(row) < rowHeight(row) / 2 ? row : row + 1;
}

void MyTableView::startDrag(Qt::DropActions /*actions*/)
{
    RowDrag::run(*this, viewport()->grab(visualRect(currentIndex().siblingAtColumn(MovieTableModel::Title))));
}

void MyTableView::endDrag()
{
    stopAutoScroll();
    setState(NoState);
    setInsertion({});
    refreshState(false);
}

void MyTableView::setInsertion(std::optional<int> row)
{
    if (insertion_ != row) {
        insertion_ = row;
        viewport()->update();
    }
}

bool MyTableView::offer(const DropSpot &spot)
{
    const bool wanted = dropDelegate_ && dropDelegate_->validateDrop(spot.row, spot.between);
    refreshState(wanted);
    setInsertion(wanted ? std::optional(spot.row) : std::nullopt);
    return wanted;
}

void MyTableView::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(RowDrag::isOf(*this, *event) || DroppedFiles::areIn(*event->mimeData()));
}

void MyTableView::dragMoveEvent(QDragMoveEvent *event)
{
    QTableView::dragMoveEvent(event); // scrolls near the edges
    if (RowDrag::isOf(*this, *event)) {
        setInsertion(gapAt(event->position().toPoint().y()));
        event->setDropAction(Qt::MoveAction);
        event->accept();
        return;
    }
    const bool wanted = offer(spotAt(event->position().toPoint().y()));
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(wanted);
}

void MyTableView::dragLeaveEvent(QDragLeaveEvent *event)
{
    QTableView::dragLeaveEvent(event);
    setInsertion({});
    refreshState(false);
}

void MyTableView::dropEvent(QDropEvent *event)
{
    const int y = event->position().toPoint().y();
    if (RowDrag::isOf(*this, *event)) {
        endDrag();
        event->acceptProposedAction();
        if (dropDelegate_) {
            dropDelegate_->moveRows(gapAt(y));
        }
        return;
    }
    const DropSpot spot = spotAt(y);
    const bool wanted = offer(spot) && DroppedFiles::areIn(*event->mimeData());
    endDrag();
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(wanted);
    if (wanted) {
        droppedFiles_.fetch(*event->mimeData(), *this, [this, spot](const QStringList &paths) {
            if (dropDelegate_ && !paths.isEmpty()) {
                qCDebug(lcTessarine) << "accept drop," << paths;
                dropDelegate_->acceptDrop(paths, spot.row);
            }
        });
    }
}

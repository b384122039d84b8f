#include "app/results/ExportDetails.h"

#include "Shared/PathParts.h"
#include "app/list/ExportReport.h"
#include "platform/MakeForQt.h"
#include "platform/files/PathText.h"
#include "platform/widgets/ToolTipText.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ExportDetails::ExportDetails(const ExportReport &report, QWidget *parent) : QDialog(parent)
{
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    //% "Details of the Export"
    setWindowTitle(qtTrId("details_title"));
    setLayout(makeForQt<QVBoxLayout>());
    layout()->addWidget(makeForQt<QLabel>(report.summary()));
    addTable(report);
    addButtons(report);
    resize(760, 360);
}

void ExportDetails::addTable(const ExportReport &report)
{
    auto *table = makeForQt<QTableWidget>(static_cast<int>(report.results.size()), 2);
    //% "Movies and what has become of them"
    table->setAccessibleName(qtTrId("details_table"));
    //% "Movie"
    const QString movie = qtTrId("details_movie");
    //% "Image or reason"
    const QString outcome = qtTrId("details_outcome");
    table->setHorizontalHeaderLabels({movie, outcome});
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setTabKeyNavigation(false);
    int row = 0;
    for (const ExportResult &result : report.results) {
        const QString path = PathText::forDisplay(result.filePath);
        const QString texts[] = {PathText::forDisplay(GlobalFun::lastPathComponent(result.filePath)),
                                 ExportReport::outcome(result)};
        for (int column = 0; column < table->columnCount(); ++column) {
            auto item = std::make_unique<QTableWidgetItem>(texts[column]);
            item->setToolTip(plainToolTip(column == 0 ? path : texts[column]));
            table->setItem(row, column, item.release());
        }
        ++row;
    }
    table->resizeColumnToContents(0);
    table->setColumnWidth(0, std::min(table->columnWidth(0), 300));
    layout()->addWidget(table);
}

void ExportDetails::addButtons(const ExportReport &report)
{
    auto *buttons = makeForQt<QDialogButtonBox>(QDialogButtonBox::Close);
    //% "&Retry"
    QPushButton *again = buttons->addButton(qtTrId("details_retry"), QDialogButtonBox::ActionRole);
    again->setObjectName(u"retry"_s);
    again->setEnabled(!report.toRetry().empty());
    connect(again, &QPushButton::clicked, this, [this] {
        close();
        Q_EMIT retry();
    });
    //% "C&opy"
    QPushButton *copy = buttons->addButton(qtTrId("details_copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, this,
            [text = report.asText()] { QGuiApplication::clipboard()->setText(text); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    layout()->addWidget(buttons);
}

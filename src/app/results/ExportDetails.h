#pragma once

#include <QDialog>

class QDialogButtonBox;
struct ExportReport;

/// A sheet with what has become of each movie of an export; can be copied. Deletes itself when it is closed. Main
/// thread.
class ExportDetails final : public QDialog {
    Q_OBJECT

public:
    ExportDetails(const ExportReport &report, QWidget *parent);

Q_SIGNALS:
    /// Those that could not be made, or not whole, are to be tried again.
    void retry();

private:
    void addTable(const ExportReport &report);
    void addButtons(const ExportReport &report);
};

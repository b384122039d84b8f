#pragma once

class MyTableView;

/// Hears of the table's keys and reloads; every call is optional. Main thread.
class TableReloadDelegate {
public:
    virtual ~TableReloadDelegate() = default;

    /// Delete or Backspace was pressed.
    virtual void deleteFileDown(MyTableView & /*table*/) {}
    virtual void spaceKeyDown(MyTableView & /*table*/) {}
    /// Rows of a reload have been drawn.
    virtual void tableViewReloaded(MyTableView & /*table*/) {}
};

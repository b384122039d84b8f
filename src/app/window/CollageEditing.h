#pragma once

#include "app/list/CollageStep.h"
#include "collage/editor/CollageEditorHost.h"

#include <QString>

#include <functional>
#include <memory>

class AlertPanel;
class KTCustomCollageWndCtl;
class ListHistory;
class MovieJobs;
class MovieList;
class MyTableView;
class NotificationCenter;
class QAction;
class QWidget;
class UserDefaults;

/// The collage editor's place in the main window: opens it on the selected movie and steps it through the list.
/// While it is open no batch is loaded, so that the rows stay where they are. Owned by the main window; main thread.
class CollageEditing final : private CollageEditorHost {
public:
    /// All of it must outlive this.
    struct Services {
        UserDefaults &defaults;
        NotificationCenter &notifications;
        AlertPanel &alert;
        MovieList &movies;
        ListHistory &history;
        MyTableView &tableView;
        MovieJobs &jobs;
        QAction &quit; ///< can be used from the sheet, too
    };

    /// The sheet hangs over this window.
    CollageEditing(Services services, QWidget &window);
    ~CollageEditing() override;

    /// Opens the editor; nothing when no movie is selected or a job is running.
    void customCollageDown();
    /// Closes the editor, as its Cancel does.
    void cancel();

    void selectPrevMovie() override;
    void selectNextMovie() override;

private:
    std::vector<std::shared_ptr<KTMovieObject>> aryItems() const override;
    void reloadData() override;

    void makeEditor();
    int selectedRow() const;
    int rowCount() const;
    void showRow(int row);
    /// From one of these to the other is one step that can be undone.
    void beginVisit(int row);
    void endVisit();

    Services services_;
    QWidget &window_;
    std::unique_ptr<KTCustomCollageWndCtl> customWndCtl; // from the first opening on
    CollageStep::Looks looks_;                           // of all movies when the visit began
};

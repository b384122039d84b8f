#pragma once

#include "platform/desktop/Desktop.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QAbstractButton;
class QCheckBox;
class QLineEdit;
class StatusLine;
class TrustedFolders;
class UserDefaults;

/// The output line of the main window: the folder for collages, its two buttons and the choice to write beside the
/// movies, for which it asks access to their folders. Main thread; the widgets belong to the window.
class OutputFolderControls final : public QObject {
    Q_OBJECT

public:
    struct Widgets {
        QLineEdit *lblOutputPath;
        QAbstractButton *btnBrowser;
        QAbstractButton *btnOpen;
        QCheckBox *chkSameOrigin;
        StatusLine *statusLine; ///< tells when there is no folder to write into
    };
    /// All of it must outlive this; questions and panels belong to the window, and go with it.
    struct Services {
        UserDefaults &defaults;
        TrustedFolders &trustedFolders;
        Desktop desktop;
        QString home;                            ///< the default folder lies under it
        std::function<QStringList()> moviePaths; ///< of the list, in order
    };

    OutputFolderControls(Widgets widgets, Services services);

    /// Shows the stored folder, or the default one where that is gone. The check box always starts unchecked.
    void showStoredFolder();
    /// Shows the default folder when nothing can be written into the one shown.
    void appLaunched();
    /// The folder shown.
    QString outputPath() const { return folder_; }

    void browseDown();
    void openFinderDown();
    /// Takes over the check box: asks for the folders that cannot be written, then stores the choice.
    void sameOriginDown();

private:
    void show(const QString &path);
    /// Makes and shows the default folder, and tells when nothing can be written into it.
    void showDefaultFolder();
    void authorize(const QStringList &folders);
    void applySameOrigin();

    Widgets widgets_;
    Services services_;
    QString folder_; // the field shows it as well as text can
};

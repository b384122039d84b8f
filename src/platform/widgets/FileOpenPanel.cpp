#include "platform/widgets/FileOpenPanel.h"

#include "platform/MakeForQt.h"
#include "platform/widgets/FrontWindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QListView>
#include <QTreeView>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The toolkit's dialog goes into a folder when it is told to open it. This one takes a selected folder as an answer
/// where folders may be chosen beside files; a double click still goes into it.
class MixedFileDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    bool takesFoldersToo = false;

    void accept() override
    {
        const QStringList files = selectedFiles();
        const bool hasFolder = std::ranges::any_of(files, [](const QString &path) { return QFileInfo(path).isDir(); });
        const bool allThere = std::ranges::all_of(files, [](const QString &path) { return QFileInfo::exists(path); });
        if (takesFoldersToo && hasFolder && allThere && files != QStringList(directory().absolutePath())) {
            QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): past the check that wants files only
        } else {
            QFileDialog::accept();
        }
    }
};

QFileDialog::FileMode fileMode(const OpenPanelRequest &request)
{
    if (!request.files) {
        return QFileDialog::Directory;
    }
    return request.multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

/// "Supported files (*.mkv *.MKV …)": the desktops' own dialogs tell cases apart.
QString nameFilter(const QStringList &extensions)
{
    QStringList patterns;
    for (const QString &extension : extensions) {
        patterns << u"*." + extension.toLower() << u"*." + extension.toUpper();
    }
    //% "Supported files"
    return qtTrId("supported_files") + u" (" + patterns.join(u' ') + u')';
}

void configure(MixedFileDialog &dialog, const OpenPanelRequest &request)
{
    dialog.setWindowTitle(request.title);
    dialog.setFileMode(fileMode(request));
    dialog.setOption(QFileDialog::ShowDirsOnly, !request.files);
    if (!request.folder.isEmpty()) {
        dialog.setDirectory(request.folder);
    }
    if (!request.extensions.isEmpty() && request.files) {
        dialog.setNameFilter(nameFilter(request.extensions));
    }
    if (!request.prompt.isEmpty()) {
        dialog.setLabelText(QFileDialog::Accept, request.prompt);
    }
}

/// The toolkit's dialog has no mode for several folders, but its lists can.
void letSelectSeveral(const QFileDialog &dialog)
{
    for (QAbstractItemView *view : dialog.findChildren<QAbstractItemView *>()) {
        if (view->objectName() == "listView"_L1 || view->objectName() == "treeView"_L1) {
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        }
    }
}

void openDialog(bool sandboxed, const OpenPanelRequest &request,
                const std::function<void(const QStringList &paths)> &chosen)
{
    auto *dialog = makeForQt<MixedFileDialog>(frontWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const bool needsToolkit = request.folders && (request.files || request.multiple);
    dialog->setOption(QFileDialog::DontUseNativeDialog, needsToolkit && !sandboxed);
    dialog->takesFoldersToo = needsToolkit && request.files && !sandboxed;
    configure(*dialog, request);
    if (needsToolkit && request.multiple && !sandboxed) {
        letSelectSeveral(*dialog);
    }
    QObject::connect(dialog, &QDialog::finished, dialog, [dialog, chosen](int result) {
        chosen(result == QDialog::Accepted ? dialog->selectedFiles() : QStringList());
    });
    dialog->open();
}

} // namespace

OpenPanel fileOpenPanel(bool sandboxed)
{
    return std::bind_front(openDialog, sandboxed);
}

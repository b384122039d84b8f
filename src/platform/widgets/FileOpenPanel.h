#pragma once

#include "platform/desktop/OpenPanel.h"

/// Open panels as file dialogs over the front window. Main thread.
class FileOpenPanel final : public OpenPanel {
public:
    /// `sandboxed`: only the desktop's own dialog can grant access, so it is always used, though it can choose either
    /// files or one folder; a request for both gets files. Elsewhere the toolkit's dialog does what the desktop's
    /// cannot.
    explicit FileOpenPanel(bool sandboxed);

    void open(const OpenPanelRequest &request, Chosen chosen) override;

private:
    const bool sandboxed_;
};

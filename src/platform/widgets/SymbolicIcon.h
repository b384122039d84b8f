#pragma once

#include <QIcon>
#include <QString>

/// An icon in the colour of the texts around it: on light and dark themes, disabled and selected, and still when the
/// theme changes while it is shown. Drawn from the SVG image resource of this name ("import" is
/// ":/images/import.svg"), whose own colours do not count, only its opacity. Null when there is no such resource.
/// Main thread.
QIcon symbolicIcon(const QString &name);

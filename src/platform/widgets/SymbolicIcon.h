#pragma once

#include <QIcon>
#include <QString>

/// An icon in the colour of the texts around it, also when it is disabled or selected, and after a change of theme.
/// Drawn from the SVG image resource of this name ("import" is ":/images/import.svg"), whose own colours do not count,
/// only its opacity. Null when there is no such resource. Main thread.
QIcon symbolicIcon(const QString &name);

#pragma once

/// Scenarios in a host's own Qt test, without a runner of their own.

#include <tablio/testing/qt_driver.h>

#include <QString>

namespace tablio::scenario {

/// Plays all scenarios of a file, each with a new form. Answers what was not as the file says, a
/// failure a line with its place, and nothing where all is well; a file that cannot be read or
/// understood is a failure, too.
[[nodiscard]] QString playScenario(QtDriver::FormMaker makeForm, const QString &path,
                                   QString gridName = {});

} // namespace tablio::scenario

#pragma once

#include "Command.h"

#include <QList>

namespace orvex {

/// All commands, in the order of the help text.
[[nodiscard]] const QList<Command>& allCommands();

/// The help text.
[[nodiscard]] QString helpText();

}  // namespace orvex

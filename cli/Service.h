#pragma once

#include "Command.h"
#include "services/OrvexServices.h"

namespace orvex {

/// Runs a command's blocking `work` against the services that the environment names, and puts what
/// it throws before the user.
void runService(const Finish& finish, const std::function<void(const OrvexServices&)>& work);

}  // namespace orvex

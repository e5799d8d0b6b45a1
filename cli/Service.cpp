#include "Service.h"

#include "Output.h"
#include "shell/OrvexConfig.h"

namespace orvex {

void runService(const Finish& finish, const std::function<void(const OrvexServices&)>& work) {
  if (const auto used = OrvexConfig::useService(qEnvironmentVariable("ORVEX_SERVICE")); !used) {
    printError(used.error());
    return finish(WrongUsage);
  }
  try {
    work(OrvexConfig::services());
    finish(Done);
  } catch (const Stopped&) {
    printError(QStringLiteral("İptal edildi."));
    finish(Failed);
  } catch (const DescribedError& error) {
    printError(error.description());
    finish(Failed);
  }
}

}  // namespace orvex

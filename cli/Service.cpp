#include "Service.h"

#include "Output.h"
#include "shell/OrvexConfig.h"

namespace orvex {

void runService(const Finish& finish, const std::function<void(const HttpOptions&)>& work) {
  if (const auto used = OrvexConfig::useService(qEnvironmentVariable("ORVEX_SERVICE")); !used) {
    printError(used.error());
    return finish(WrongUsage);
  }
  HttpOptions http;
  http.caFile = qEnvironmentVariable("ORVEX_CA_FILE");
  try {
    work(http);
    finish(Done);
  } catch (const Stopped&) {
    printError(QStringLiteral("İptal edildi."));
    finish(Failed);
  } catch (const DescribedError& error) {
    printError(printable(error.description()));
    finish(Failed);
  }
}

}  // namespace orvex

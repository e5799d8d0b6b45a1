#include "Commands.h"

#include "AudioCommand.h"
#include "CloudCommand.h"
#include "FxPlugCommand.h"
#include "HostCommand.h"
#include "LutCommand.h"
#include "LutsCommand.h"
#include "MotionCommand.h"
#include "PacksCommand.h"
#include "ReleaseCommand.h"
#include "RequestCommand.h"

namespace orvex {

const QList<Command>& allCommands() {
  static const QList<Command> commands{
      lutsCommand(), motionCommand(), fxPlugCommand(),  audioCommand(),   hostCommand(),
      lutCommand(),  packsCommand(),  releaseCommand(), requestCommand(), cloudCommand()};
  return commands;
}

QString helpText() {
  QString commands;
  for (const Command& command : allCommands())
    commands += QStringLiteral("  orvex %1 %2\n      %3\n")
                    .arg(command.name, command.usage, command.summary);
  return QStringLiteral(
             "Vantrelo Orvex komut satırı\n\n"
             "Kullanım:\n%1"
             "  orvex --help | --version\n\n"
             "  --json   tablo yerine tek bir JSON belgesi yazdırır\n\n"
             "Ortam:\n"
             "  ORVEX_HOST      builtin, builtin:RATE, mpv, mpv:SOCKET ya da none\n"
             "  ORVEX_SERVICE   servislerin https adresi\n"
             "  ORVEX_CA_FILE   sistemdekilerin yanında güvenilecek sertifikalar (PEM)\n\n"
             "Çıkış kodu: 0 yapıldı, 1 yapılamadı, 2 yanlış kullanım.\n")
      .arg(commands);
}

}  // namespace orvex

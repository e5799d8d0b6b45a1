#include "Commands.h"
#include "Output.h"
#include "base/FileError.h"
#include "shell/OrvexConfig.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace {

using namespace orvex;

void run(const QStringList& arguments, QObject& owner, const Finish& finish) {
  const QString name = arguments.value(0);
  if (name == u"--help" || name == u"-h") {
    printLine(helpText().trimmed());
    return finish(Done);
  }
  if (name == u"--version" || name == u"-v") {
    printLine(QStringLiteral("orvex ") + OrvexConfig::version());
    return finish(Done);
  }
  const QList<Command>& commands = allCommands();
  const auto command = std::ranges::find(commands, name, &Command::name);
  if (command == commands.end()) {
    if (!name.isEmpty()) printError(QStringLiteral("\"%1\" diye bir komut yok.\n").arg(name));
    printError(helpText().trimmed());
    return finish(WrongUsage);
  }
  const QStringList rest = arguments.mid(1);
  if (rest.contains(u"--help") || rest.contains(u"-h")) {
    printLine(QStringLiteral("Kullanım: orvex %1 %2\n%3")
                  .arg(command->name, command->usage, command->summary));
    return finish(Done);
  }
  command->run(rest, owner, finish);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QObject owner;
  const Finish finish = [](ExitCode code) {
    // From the loop, so that it also ends when it has not begun.
    QMetaObject::invokeMethod(
        qApp, [code] { QCoreApplication::exit(code); }, Qt::QueuedConnection);
  };
  run(QCoreApplication::arguments().mid(1), owner, finish);
  const int code = QCoreApplication::exec();
  // What somebody waits for and does not get must not pass for done.
  const int refused = std::fflush(stdout) == 0 ? 0 : errno;
  if (refused == 0 && std::ferror(stdout) == 0) return code;
  printError(refused == 0 ? QStringLiteral("Çıktının bir kısmı yazılamadı.")
                          : QStringLiteral("Çıktı yazılamadı: %1.").arg(reasonOf(refused)));
  return std::max<int>(code, Failed);
}

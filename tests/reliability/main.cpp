// Shows what happens to the packs of a store when the program that changes it is killed, when the
// system refuses it something, when there is no space, when two change it at once, when a catalog
// means harm and when the network fails. Each line of the output is a row of docs/reliability.md.
#include "Checks.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>

int main(int argc, char** argv) {
  using namespace orvex;
  const QCoreApplication application(argc, argv);
  static const std::map<std::string, bool (*)(std::size_t)> checks{
      {"kill", checkKills},        {"errors", checkErrors}, {"space", checkSpace},
      {"together", checkTogether}, {"names", checkNames},   {"network", checkNetwork}};
  const auto check = argc >= 2 ? checks.find(argv[1]) : checks.end();
  const std::size_t most = argc == 3 ? QByteArray(argv[2]).toULongLong() : 0;
  if (check == checks.end() || argc > 3 || (argc == 3 && most == 0)) {
    std::fputs(
        "usage: orvex-reliability kill|errors|space|together|names|network [MOST]\n"
        "  MOST  about how many runs of each kind; all that there are where it is left out\n",
        stderr);
    return 2;
  }
  try {
    return check->second(most) ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
    return 1;
  }
}

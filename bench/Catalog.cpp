// Reads a catalog of content packs and chooses the panel's from it, in this process; prints
// milliseconds, packs and the peak of memory in MiB.
#include "services/UniversalPackCatalog.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <sys/resource.h>

int main(int argc, char** argv) {
  using Clock = std::chrono::steady_clock;
  QFile file(QFile::decodeName(argc == 2 ? argv[1] : ""));
  if (!file.open(QIODevice::ReadOnly)) return 2;
  const QByteArray bytes = file.readAll();
  const auto begin = Clock::now();
  const auto packs = orvex::finalCutPacks(orvex::UniversalPackCatalog::decode(bytes));
  const double spent = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  std::printf("%.3f %lld %ld\n", spent, static_cast<long long>(packs.size()),
              usage.ru_maxrss / 1024);
  return 0;
}

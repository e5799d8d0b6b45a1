// Installs one pack of a catalog into a folder and prints the milliseconds that took, the most
// memory the process had at any time, in KiB, and the bytes of the pack.
#include "services/UniversalPackClient.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sys/resource.h>

int main(int argc, char** argv) {
  using namespace orvex;
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 5) {
    std::fputs("usage: orvex-bench-packs CATALOG-URL CA-FILE ROOT PACK-ID\n", stderr);
    return 2;
  }
  try {
    const UniversalPackClient client(QUrl(arguments[1]), arguments[3], {.caFile = arguments[2]});
    const QList<UniversalPack> packs = client.finalCutPacks();
    const auto pack = std::ranges::find(packs, arguments[4], &UniversalPack::id);
    if (pack == packs.end())
      throw UniversalPackClientError(UniversalPackClientError::Kind::InvalidCatalog);
    qint64 bytes = 0;
    for (const UniversalPackAsset& asset : finalCutAssets(*pack)) bytes += asset.bytes;
    const auto begin = std::chrono::steady_clock::now();
    client.install(*pack);
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - begin;
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("%.3f %ld %lld\n", spent.count(), usage.ru_maxrss, static_cast<long long>(bytes));
    return 0;
  } catch (const DescribedError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}

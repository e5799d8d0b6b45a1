// One managed copy of a LUT made in this process: prints the milliseconds it took and the most
// memory that the process used, in MiB.
#include "base/FileUrl.h"
#include "lut/CloudLUTPreparation.h"

#include <chrono>
#include <cstdio>
#include <sys/resource.h>

int main(int argc, char** argv) {
  using namespace orvex;
  using Clock = std::chrono::steady_clock;
  if (argc != 4) {
    std::fputs("usage: orvex-bench-lut SOURCE ROOT LIBRARY\n", stderr);
    return 2;
  }
  const auto begin = Clock::now();
  try {
    std::ignore =
        CloudLUTPreparation::prepare(fileUrl(argv[1]), fileUrl(argv[2]), fileUrl(argv[3]));
  } catch (const DescribedError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  const double spent = std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  std::printf("%.3f %.1f\n", spent, static_cast<double>(usage.ru_maxrss) / 1024);
  return 0;
}

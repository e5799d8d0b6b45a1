#include "Checks.h"
#include "Scenario.h"
#include "base/DescribedError.h"
#include "base/FileUrl.h"
#include "base/SmallFile.h"
#include "support/TemporaryTree.h"

#include <sys/wait.h>

namespace orvex {
namespace {

bool isDone(const QByteArray& root, const std::string& version) {
  try {
    change(root, version);
    return true;
  } catch (const DescribedError&) {
    return false;
  }
}

// What is listed can be gone by the time it is read, but not be another's.
bool isMixture(const UniversalInstalledPack& found) {
  const TestPack& pack = packOf(found.version.toStdString());
  if (found.files != QList<QString>(pack.contents.keys())) return true;
  return std::ranges::any_of(found.files, [&](const QString& file) {
    const auto bytes = readSmallFile(
        AT_FDCWD, filePath(found.directoryURL) + '/' + QFile::encodeName(file), 1'000'000);
    return bytes && bytes != pack.contents[file];
  });
}

}  // namespace

bool checkTogether(std::size_t most) {
  const std::size_t rounds = most == 0 ? 1000 : most;
  const TemporaryTree tree;
  const QByteArray root = tree.path("packs");
  Tally tally("together");
  tally.add(isDone(root, "1") ? "" : "cannot be installed", [] { return "alone"; });
  std::vector<pid_t> processes;
  for (const char* first : {"1", "2"}) {
    const pid_t process = ::fork();
    if (process == 0) {
      for (std::size_t round = 0; round < rounds; ++round)
        if (!isDone(root, (round % 2 == 0) == (*first == '1') ? "1" : "2")) ::_exit(1);
      ::_exit(0);
    }
    processes.push_back(process);
  }
  std::size_t looks = 0;
  for (int ended = 0; ended < 2;) {
    const auto found = PackStore(root).installedPacks();
    ++looks;
    const bool isWell = found.size() == 1 && !isMixture(found.first());
    tally.add(isWell ? "" : std::to_string(found.size()) + " packs, or a mixture",
              [&] { return "look " + std::to_string(looks); });
    int status = 0;
    if (::waitpid(-1, &status, WNOHANG) <= 0) continue;
    ++ended;
    tally.add(status == 0 ? "" : "an install failed", [] { return "process"; });
  }
  packOf("other").installIn(PackStore(root));
  const std::string state = stateOf(root);
  tally.add(state == "1 other" || state == "2 other" ? "" : "shows " + state,
            [] { return "in the end"; });
  tally.add(!hasLeftovers(root) ? "" : "leftovers stay", [] { return "in the end"; });
  return tally.print(std::to_string(rounds) + " rounds of two processes");
}

}  // namespace orvex

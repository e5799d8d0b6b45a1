#include "Checks.h"
#include "Scenario.h"
#include "base/DescribedError.h"
#include "base/FileUrl.h"
#include "base/SmallFile.h"
#include "support/TemporaryTree.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>

namespace orvex {
namespace {

int waitFor(pid_t process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// A file system of so much memory, for this process alone, at `folder`; false where that is not
// permitted.
bool mountSmall(const QByteArray& folder, const QByteArray& options) {
  if (::unshare(::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
  return ::mount("tmpfs", folder.constData(), "tmpfs", 0, options.constData()) == 0;
}

constexpr int kRefused = 1;
constexpr int kWrong = 2;
constexpr int kNotPermitted = 3;

bool isDone(const QByteArray& root, const std::string& version) {
  try {
    change(root, version);
    return true;
  } catch (const DescribedError&) {
    return false;
  }
}

// Updates on a file system that has no room for both versions, or for either.
int updateIn(const TemporaryTree& tree, const QByteArray& options) {
  if (!mountSmall(tree.root(), options)) return kNotPermitted;
  const QByteArray root = tree.path("packs");
  if (!isDone(root, "1")) return stateOf(root).empty() ? kRefused : kWrong;
  const bool isUpdated = isDone(root, "2");
  if (stateOf(root) != (isUpdated ? "2" : "1") || hasLeftovers(root)) return kWrong;
  return isUpdated ? 0 : kRefused;
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

bool checkSpace(std::size_t most) {
  bool isWell = true;
  for (const auto& [what, step, end] :
       {std::tuple("size", 4096, 12 * 4096), std::tuple("nr_inodes", 1, 24)}) {
    Tally tally(std::string("space ") + what);
    int refused = 0;
    for (const std::size_t pick : sample(static_cast<std::size_t>(end / step), most)) {
      const TemporaryTree tree;
      const QByteArray options =
          what + QByteArray("=") + QByteArray::number(static_cast<int>(pick + 1) * step);
      const pid_t process = ::fork();
      if (process == 0) ::_exit(updateIn(tree, options));
      const int result = waitFor(process);
      if (result == kNotPermitted) {
        std::printf("%-42s not permitted here\n", "space");
        return true;
      }
      refused += result == kRefused ? 1 : 0;
      tally.add(result == 0 || result == kRefused ? "" : "ended with " + std::to_string(result),
                [&] { return options.toStdString(); });
    }
    isWell &= tally.print(std::to_string(refused) + " refused") && refused > 0;
  }
  return isWell;
}

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

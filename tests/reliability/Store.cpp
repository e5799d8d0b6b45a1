#include "Checks.h"
#include "Scenario.h"
#include "base/FileUrl.h"
#include "base/SmallFile.h"
#include "services/UniversalPackClientError.h"
#include "support/TemporaryTree.h"

#include <QRandomGenerator>

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>

namespace orvex {
namespace {

using namespace Qt::StringLiterals;
using Entries = std::vector<std::string>;

// Everything below a folder but what is below `except`.
Entries entriesOf(const QByteArray& folder, const QByteArray& except) {
  Entries entries;
  namespace fs = std::filesystem;
  for (auto entry = fs::recursive_directory_iterator(folder.toStdString());
       entry != fs::recursive_directory_iterator(); ++entry) {
    entries.push_back(entry->path().string());
    if (entry->path() == except.toStdString()) entry.disable_recursion_pending();
  }
  std::ranges::sort(entries);
  return entries;
}

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

// Updates on a file system that has no room for both versions, or for either.
int updateIn(const TemporaryTree& tree, const QByteArray& options) {
  if (!mountSmall(tree.root(), options)) return kNotPermitted;
  const QByteArray root = tree.path("packs");
  if (!isDone([&] { change(root, "1"); })) return stateOf(root).empty() ? kRefused : kWrong;
  const bool isUpdated = isDone([&] { change(root, "2"); });
  if (stateOf(root) != (isUpdated ? "2" : "1") || hasLeftovers(root)) return kWrong;
  return isUpdated ? 0 : kRefused;
}

QString hostileName(QRandomGenerator& random) {
  static const QStringList pieces =
      u"..|.|/|\\|\n|a|film|~|-|outside|installed.json|%2e| |\u2215|ſ|\u202e"_s.split(u'|') +
      QStringList{QChar(0), QChar(0xd800), QString(120, u'x'), QString(120, u'ş')};
  QString name;
  for (int count = random.bounded(5); count > 0; --count)
    name += pieces[random.bounded(pieces.size())];
  return name;
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
  tally.add(isDone([&] { change(root, "1"); }) ? "" : "cannot be installed",
            [] { return "alone"; });
  std::vector<pid_t> processes;
  for (const char* first : {"1", "2"}) {
    const pid_t process = ::fork();
    if (process == 0) {
      for (std::size_t round = 0; round < rounds; ++round)
        if (!isDone([&] { change(root, (round % 2 == 0) == (*first == '1') ? "1" : "2"); }))
          ::_exit(1);
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

bool checkNames(std::size_t most) {
  const std::size_t count = most == 0 ? 10'000 : most;
  const TemporaryTree tree;
  tree.file("outside/film/1/kept", "kept");
  tree.file("a/x");
  const QByteArray root = tree.path("inside/packs");
  const PackStore store(root);
  packOf("other").installIn(store);
  const Entries before = entriesOf(tree.root(), root);
  QRandomGenerator random(1);
  Tally tally("names");
  std::size_t installed = 0;
  for (std::size_t round = 0; round < count; ++round) {
    // One name at a time, so that it is what decides.
    const QString name = hostileName(random);
    TestPack hostile(round % 3 == 0 ? name : u"film"_s, round % 3 == 1 ? name : u"1"_s, {});
    if (round % 3 == 2) hostile = TestPack(u"film"_s, u"1"_s, {{name, "x"}});
    std::string wrong;
    bool isRefused = false;
    try {
      hostile.installIn(store);
      ++installed;
    } catch (const UniversalPackClientError&) {
      isRefused = true;
    } catch (const std::exception& error) {
      wrong = error.what();
    }
    const auto found = store.installedPacks();
    if (found.size() != (isRefused ? 1 : 2)) wrong = std::to_string(found.size()) + " packs listed";
    try {
      store.uninstall(hostile.pack.id);
    } catch (const UniversalPackClientError&) {
      if (!isRefused) wrong = "installed and not removable";
    }
    if (entriesOf(tree.root(), root) != before) wrong = "something happened outside";
    if (stateOf(root) != "other" || hasLeftovers(root)) wrong = "something stays inside";
    tally.add(wrong, [&] { return std::to_string(round) + ": " + name.toStdString(); });
  }
  return tally.print(std::to_string(installed) + " of the names harmless");
}

}  // namespace orvex

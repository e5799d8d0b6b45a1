#include "Scenario.h"

#include "base/DescribedError.h"
#include "base/Directory.h"
#include "base/FileUrl.h"
#include "base/SmallFile.h"

#include <fcntl.h>
#include <map>

namespace orvex {
namespace {

QByteArray bytes(char letter, qsizetype size) {
  return QByteArray(size, letter);
}

const QString kId = QStringLiteral("film");

// Nothing where every file of the pack is there with its bytes, and nothing else is.
bool isWhole(const UniversalInstalledPack& found, const TestPack& pack) {
  const QByteArray folder = filePath(found.directoryURL);
  if (Directory::open(folder).names().size() != pack.contents.size() + 1) return false;
  for (auto file = pack.contents.begin(); file != pack.contents.end(); ++file)
    if (readSmallFile(AT_FDCWD, folder + '/' + file.key().toUtf8(), 1'000'000) != *file)
      return false;
  return found.files == QList<QString>(pack.contents.keys());
}

}  // namespace

const TestPack& packOf(const std::string& version) {
  static const std::map<std::string, TestPack> packs{
      {"1", TestPack(kId, QStringLiteral("1"),
                     {{QStringLiteral("a.cube"), bytes('a', 3000)},
                      {QStringLiteral("b.cube"), bytes('b', 10)},
                      {QStringLiteral("empty"), {}}})},
      {"1b", TestPack(kId, QStringLiteral("1"),
                      {{QStringLiteral("a.cube"), bytes('x', 2000)},
                       {QStringLiteral("c.cube"), bytes('c', 500)}})},
      {"2", TestPack(kId, QStringLiteral("2"),
                     {{QStringLiteral("a.cube"), bytes('y', 3000)},
                      {QStringLiteral("d.cube"), bytes('d', 100)}})}};
  return packs.at(version);
}

const TestPack& bystander() {
  static const TestPack pack(QStringLiteral("other"), QStringLiteral("7"),
                             {{QStringLiteral("o.cube"), bytes('o', 100)}});
  return pack;
}

std::string stateOf(const QByteArray& root) {
  std::string state;
  for (const UniversalInstalledPack& found : PackStore(root).installedPacks()) {
    std::string version = "damaged";
    if (found.id == bystander().pack.id && isWhole(found, bystander())) version = "other";
    for (const char* candidate : {"1", "1b", "2"})
      if (found.id == kId && found.version == packOf(candidate).pack.version &&
          isWhole(found, packOf(candidate)))
        version = candidate;
    state += (state.empty() ? "" : " ") + version;
  }
  return state;
}

QList<QByteArray> leftoversIn(const QByteArray& root) {
  QList<QByteArray> names = Directory::open(root).names();
  names.removeIf([](const QByteArray& name) { return !name.startsWith('.'); });
  return names;
}

int change(const QByteArray& root, const std::string& version) try {
  const PackStore store(root);
  if (version.empty())
    store.uninstall(kId);
  else
    packOf(version).installIn(store);
  return 0;
} catch (const DescribedError&) {
  return 1;
}

}  // namespace orvex

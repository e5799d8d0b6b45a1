#include "Packs.h"

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

std::string withOther(const std::string& state) {
  if (state.ends_with("other")) return state;
  return state.empty() ? "other" : state + " other";
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

void change(const QByteArray& root, const std::string& version) {
  const PackStore store(root);
  if (version.empty())
    store.uninstall(kId);
  else
    packOf(version).installIn(store);
}

std::vector<Scenario> packScenarios() {
  const auto scenario = [](const char* name, const std::string& before, const std::string& after,
                           bool withoutExchange = false) {
    const auto root = [](const QByteArray& folder) { return folder + "/store/packs"; };
    // The first install finds nothing at all.
    const auto state = [before](const std::string& version) {
      return before.empty() ? version : withOther(version);
    };
    return Scenario{
        .name = name,
        .prepare =
            [=](const QByteArray& folder) {
              if (before.empty()) return;
              change(root(folder), before);
              bystander().installIn(PackStore(root(folder)));
            },
        .change = [=](const QByteArray& folder) { change(root(folder), after); },
        .state = [=](const QByteArray& folder) { return stateOf(root(folder)); },
        .before = state(before),
        .after = state(after),
        // The next install finds its way and clears up.
        .aftermath = [=](const QByteArray& folder, const std::string& found) -> std::string {
          bystander().installIn(PackStore(root(folder)));
          if (!leftoversIn(root(folder)).isEmpty()) return "leftovers stay";
          const std::string now = stateOf(root(folder));
          return now == withOther(found) ? "" : "shows '" + now + "' after another install";
        },
        .withoutExchange = withoutExchange};
  };
  return {scenario("install", "", "1"),
          scenario("update", "1", "2"),
          scenario("reinstall", "1", "1b"),
          scenario("uninstall", "1", ""),
          scenario("update without exchange", "1", "2", true),
          scenario("reinstall without exchange", "1", "1b", true)};
}

}  // namespace orvex

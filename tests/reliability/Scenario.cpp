#include "Scenario.h"

#include "base/Directory.h"
#include "base/FileUrl.h"
#include "base/NewFile.h"
#include "base/SmallFile.h"
#include "lut/CloudLUTPreparation.h"

#include <algorithm>
#include <fcntl.h>
#include <map>

namespace orvex {
namespace {

using namespace Qt::StringLiterals;

const QByteArray kLut = "LUT_3D_SIZE 2\n" + QByteArray("0 0 0\n").repeated(1000);

std::optional<QByteArray> contentsOf(const QByteArray& path) {
  return readSmallFile(AT_FDCWD, path, 1'000'000);
}

// Whether every file of the pack is there with its bytes, and nothing else is.
bool isWhole(const UniversalInstalledPack& found, const TestPack& pack) {
  const QByteArray folder = filePath(found.directoryURL);
  if (found.id != pack.pack.id || found.version != pack.pack.version) return false;
  if (Directory::open(folder).names().size() != pack.contents.size() + 1) return false;
  for (auto file = pack.contents.begin(); file != pack.contents.end(); ++file)
    if (contentsOf(folder + '/' + file.key().toUtf8()) != *file) return false;
  return found.files == QList<QString>(pack.contents.keys());
}

std::string withOther(const std::string& state) {
  if (state.ends_with("other")) return state;
  return state.empty() ? "other" : state + " other";
}

Scenario packScenario(const char* name, std::ptrdiff_t syncs, const std::string& before,
                      const std::string& after, bool withoutExchange = false) {
  const auto root = [](const QByteArray& folder) { return folder + "/store/packs"; };
  const auto installOther = [root](const QByteArray& folder) {
    packOf("other").installIn(PackStore(root(folder)));
  };
  // The first install finds nothing at all.
  const auto state = [before](const std::string& version) {
    return before.empty() ? version : withOther(version);
  };
  Scenario scenario{.name = name,
                    .syncs = syncs,
                    .before = state(before),
                    .after = state(after),
                    .withoutExchange = withoutExchange};
  scenario.prepare = [=](const QByteArray& folder) {
    if (before.empty()) return;
    change(root(folder), before);
    installOther(folder);
  };
  scenario.change = [=](const QByteArray& folder) { change(root(folder), after); };
  scenario.state = [=](const QByteArray& folder) { return stateOf(root(folder)); };
  // The next install finds its way and clears up.
  scenario.aftermath = [=](const QByteArray& folder, const std::string& found) -> std::string {
    installOther(folder);
    if (hasLeftovers(root(folder))) return "leftovers stay";
    const std::string now = stateOf(root(folder));
    return now == withOther(found) ? "" : "shows '" + now + "' after another install";
  };
  return scenario;
}

Scenario lutScenario(const char* name, std::ptrdiff_t syncs, const std::string& before) {
  const auto copyIn = [](const QByteArray& folder) {
    return folder + "/library/" + Sha256::of(kLut).toHex() + "/film.cube";
  };
  const auto state = [=](const QByteArray& folder) -> std::string {
    const auto bytes = contentsOf(copyIn(folder));
    return !bytes ? "" : *bytes == kLut ? "whole" : *bytes == "damaged" ? "damaged" : "neither";
  };
  Scenario scenario{
      .name = name, .syncs = syncs, .before = before, .after = "whole", .maybeDone = true};
  scenario.prepare = [=](const QByteArray& folder) {
    std::ignore = replaceFile(folder + "/pack/film.cube", kLut);
    if (!before.empty()) std::ignore = replaceFile(copyIn(folder), before.c_str());
  };
  scenario.change = [](const QByteArray& folder) {
    std::ignore =
        CloudLUTPreparation::prepare(fileUrl(folder + "/pack/film.cube"), fileUrl(folder + "/pack"),
                                     fileUrl(folder + "/library"));
  };
  scenario.state = state;
  scenario.aftermath = [=](const QByteArray& folder, const std::string& found) -> std::string {
    return state(folder) == found ? "" : "changes by itself";
  };
  return scenario;
}

}  // namespace

const TestPack& packOf(const std::string& version) {
  const auto bytes = [](char letter, qsizetype size) { return QByteArray(size, letter); };
  static const std::map<std::string, TestPack> packs{
      {"1",
       {u"film"_s,
        u"1"_s,
        {{u"a.cube"_s, bytes('a', 3000)}, {u"b.cube"_s, bytes('b', 10)}, {u"empty"_s, {}}}}},
      {"1b",
       {u"film"_s, u"1"_s, {{u"a.cube"_s, bytes('x', 2000)}, {u"c.cube"_s, bytes('c', 500)}}}},
      {"2", {u"film"_s, u"2"_s, {{u"a.cube"_s, bytes('y', 3000)}, {u"d.cube"_s, bytes('d', 100)}}}},
      {"other", {u"other"_s, u"7"_s, {{u"o.cube"_s, bytes('o', 100)}}}}};
  return packs.at(version);
}

std::string stateOf(const QByteArray& root) {
  std::string state;
  for (const UniversalInstalledPack& found : PackStore(root).installedPacks()) {
    std::string version = "damaged";
    for (const char* candidate : {"1", "1b", "2", "other"})
      if (isWhole(found, packOf(candidate))) version = candidate;
    state += (state.empty() ? "" : " ") + version;
  }
  return state;
}

bool hasLeftovers(const QByteArray& root) {
  return std::ranges::any_of(Directory::open(root).names(),
                             [](const QByteArray& name) { return name.startsWith('.'); });
}

void change(const QByteArray& root, const std::string& version) {
  if (version.empty())
    PackStore(root).uninstall(u"film"_s);
  else
    packOf(version).installIn(PackStore(root));
}

std::vector<Scenario> scenarios() {
  return {packScenario("install", 9, "", "1"),
          packScenario("update", 6, "1", "2"),
          packScenario("reinstall", 6, "1", "1b"),
          packScenario("uninstall", 1, "1", ""),
          packScenario("update without exchange", 6, "1", "2", true),
          packScenario("reinstall without exchange", 6, "1", "1b", true),
          lutScenario("copy of a LUT", 4, ""),
          lutScenario("copy of a LUT over a damaged one", 2, "damaged")};
}

}  // namespace orvex

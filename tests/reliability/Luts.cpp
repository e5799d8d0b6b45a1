#include "Luts.h"

#include "base/FileUrl.h"
#include "base/NewFile.h"
#include "base/Sha256.h"
#include "base/SmallFile.h"
#include "lut/CloudLUTPreparation.h"

#include <fcntl.h>

namespace orvex {
namespace {

const QByteArray kLut = "LUT_3D_SIZE 2\n" + QByteArray("0 0 0\n").repeated(1000);

QByteArray copyIn(const QByteArray& folder) {
  return folder + "/library/" + Sha256::of(kLut).toHex() + "/film.cube";
}

std::string stateOf(const QByteArray& folder) {
  const auto bytes = readSmallFile(AT_FDCWD, copyIn(folder), 1'000'000);
  return !bytes ? "" : *bytes == kLut ? "whole" : *bytes == "damaged" ? "damaged" : "neither";
}

Scenario scenario(const char* name, const std::string& before) {
  return {.name = name,
          .prepare =
              [before](const QByteArray& folder) {
                std::ignore = replaceFile(folder + "/pack/film.cube", kLut);
                if (!before.empty()) std::ignore = replaceFile(copyIn(folder), before.c_str());
              },
          .change =
              [](const QByteArray& folder) {
                std::ignore = CloudLUTPreparation::prepare(fileUrl(folder + "/pack/film.cube"),
                                                           fileUrl(folder + "/pack"),
                                                           fileUrl(folder + "/library"));
              },
          .state = stateOf,
          .before = before,
          .after = "whole",
          .aftermath = [](const QByteArray& folder, const std::string& found) -> std::string {
            return stateOf(folder) == found ? "" : "changes by itself";
          },
          .maybeDone = true};
}

}  // namespace

std::vector<Scenario> lutScenarios() {
  return {scenario("copy of a LUT", ""), scenario("copy of a LUT over a damaged one", "damaged")};
}

}  // namespace orvex

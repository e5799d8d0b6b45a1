// Checks of the parsers that read what others wrote: each gets one input and ends the process where
// something does not hold. One check makes a fuzzer; all of them a program that gives each the
// inputs that are kept for its fuzzer, among them all that once broke it.
#include "base/Json.h"
#include "base/PropertyList.h"
#include "base/StringsFile.h"
#include "companion/CompanionRequest.h"
#include "engines/LUTHeader.h"
#include "lut/BridgeExchange.h"
#include "lut/CubeLattice.h"
#include "platform/hosts/MpvMessage.h"
#include "platform/linux/FolderGrant.h"
#include "services/ReleaseManifest.h"
#include "services/SemanticVersion.h"
#include "services/UniversalInstalledRecord.h"
#include "services/UniversalPackCatalog.h"
#include "speed/SpeedCurve.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace orvex {
namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

// The input is the body of bytes whose checksum is right, which chance would not hit. What is
// read must say the same when it is written and read again, and name one absolute place.
void bookmark(const QByteArray& bytes) {
  const QByteArray whole = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256) + bytes;
  if (const auto grant = FolderGrant::fromBytes(whole))
    require(grant->toBytes() == whole && grant->path.startsWith('/') &&
            !grant->path.contains("/../") && !grant->path.contains('\0'));
}

void bridge_reply(const QByteArray& bytes) {
  try {
    std::ignore = BridgeReply::decode(bytes);
  } catch (const DescribedError&) {
  }
}

// What is read must be one of the few addresses there are, byte for byte.
void companion_request(const QByteArray& bytes) {
  const auto request = CompanionRequest::parse(bytes);
  if (!request) return require(!request.error().isEmpty());
  const bool isFocus = request->verb == CompanionRequest::Verb::FocusPanel;
  require(bytes ==
          (isFocus ? "vantrelo-finalcut://focus-panel"
                   : "vantrelo-finalcut://timeline-action?action=" + request->action.toUtf8()));
}

// What is read must give a colour for any input and, written canonically, read again; what is not
// must say why.
void cube_lattice(const QByteArray& bytes) {
  const auto lattice = readCube(bytes);
  if (!lattice) return require(!lattice.error().reason.isEmpty() && lattice.error().line >= 0);
  for (const float value : {-1.0F, 0.0F, 0.3F, 1.0F, 3e38F, std::nanf("")})
    std::ignore = lattice->apply({value, 0.5F, 1 - value});
  // Resampling is too slow to be done for every input.
  if (lattice->shaper.empty() && lattice->domainMin == Rgb{0, 0, 0} &&
      lattice->domainMax == Rgb{1, 1, 1}) {
    const auto again = readCube(canonicalCube(*lattice));
    require(again && again->points == lattice->points);
  }
}

// What is read must say the same when it is written and read again.
void installed_record(const QByteArray& bytes) {
  try {
    const auto record = UniversalInstalledRecord::decode(bytes);
    const auto again = UniversalInstalledRecord::decode(record.encode());
    require(again.id == record.id && again.name == record.name && again.version == record.version &&
            again.files == record.files);
  } catch (const JsonError&) {
  }
}

void lut_header(const QByteArray& bytes) {
  std::ignore = LUTHeader::parse(bytes);
}
void mpv_message(const QByteArray& bytes) {
  std::ignore = parseMpvMessage(bytes);
}
void property_list(const QByteArray& bytes) {
  std::ignore = PropertyList::parse(bytes);
}
void strings_file(const QByteArray& bytes) {
  std::ignore = StringsFile::parse(bytes);
}

// What is read must read the same when it is written again; choosing loses and makes up nothing.
void pack_catalog(const QByteArray& bytes) {
  try {
    const auto catalog = UniversalPackCatalog::decode(bytes);
    require(UniversalPackCatalog::decode(catalog.encode()) == catalog);
    for (const UniversalPack& pack : finalCutPacks(catalog))
      require(catalog.packs.contains(pack) &&
              finalCutAssets(pack).size() >= pack.sharedAssets.size());
  } catch (const JsonError&) {
  }
}

// What is read must read the same when it is written again, and its version equal itself.
void release_manifest(const QByteArray& bytes) {
  try {
    const auto manifest = ReleaseManifest::decode(bytes);
    const SemanticVersion version(manifest.version);
    require(ReleaseManifest::decode(manifest.encode()) == manifest && !(version < version));
  } catch (const JsonError&) {
  }
}

// What is read must be a curve whose own text reads back as the curve that the text shows.
void speed_curve(const QByteArray& bytes) {
  if (const auto curve = SpeedCurve::fromBezierCode(QString::fromUtf8(bytes))) {
    const QString code = curve->bezierCode();
    const auto again = SpeedCurve::fromBezierCode(code);
    require(again && again->bezierCode() == code);
  }
}

const std::map<std::string, void (*)(const QByteArray&)> kChecks{
    {"bookmark", bookmark},
    {"bridge_reply", bridge_reply},
    {"companion_request", companion_request},
    {"cube_lattice", cube_lattice},
    {"installed_record", installed_record},
    {"lut_header", lut_header},
    {"mpv_message", mpv_message},
    {"pack_catalog", pack_catalog},
    {"property_list", property_list},
    {"release_manifest", release_manifest},
    {"speed_curve", speed_curve},
    {"strings_file", strings_file}};

}  // namespace
}  // namespace orvex

#ifdef ORVEX_FUZZED
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const auto check = orvex::kChecks.at(ORVEX_FUZZED);
  check(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  return 0;
}
#else
int main() {
  for (const auto& [name, check] : orvex::kChecks) {
    const QDir corpus(QString::fromStdString(ORVEX_CORPORA + name));
    if (corpus.isEmpty()) return 1;
    for (const QString& input : corpus.entryList(QDir::Files)) {
      std::puts(qPrintable(corpus.filePath(input)));
      std::fflush(stdout);
      QFile file(corpus.filePath(input));
      if (!file.open(QIODevice::ReadOnly)) return 1;
      check(file.readAll());
    }
  }
  return 0;
}
#endif

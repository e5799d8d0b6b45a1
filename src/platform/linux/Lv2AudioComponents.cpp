#include "platform/linux/Lv2AudioComponents.h"

#include "platform/SystemLog.h"
#include "platform/linux/Lv2Stream.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <chrono>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// Of one run of the program. A thousand bundles take a fraction of it.
constexpr std::chrono::milliseconds kLimit = 20s;
constexpr int kLookInterval = 20;  // ms
constexpr qint64 kMaxOutput = 64 << 20;
// Of bundles left out: with so many broken ones the system is.
constexpr int kMaxLeftOut = 16;

struct Listing {
  QList<AudioComponent> effects;
  // The bundle that was being read last.
  QByteArray bundle;
  bool complete = false;
};

Listing parse(const QByteArray& output) {
  Listing listing;
  QDataStream stream(output);
  stream.setVersion(kLv2StreamVersion);
  while (!listing.complete) {
    Lv2Record tag{};
    QByteArray bundle;
    AudioComponent effect;
    stream >> tag;
    if (tag == Lv2Record::Reading) stream >> bundle;
    if (tag == Lv2Record::Effect) stream >> effect;
    if (stream.status() != QDataStream::Ok) break;
    if (tag == Lv2Record::Reading)
      listing.bundle = bundle;
    else if (tag == Lv2Record::Effect)
      listing.effects.append(effect);
    else if (tag == Lv2Record::End)
      listing.complete = true;
    else
      break;
  }
  return listing;
}

Listing run(const QString& program, const QStringList& leftOut, const std::stop_token& stop) {
  QProcess process;
  // What lilv says of the bundles' faults is for their makers.
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(program, leftOut, QIODevice::ReadOnly);
  const QDeadlineTimer deadline(kLimit);
  while (!process.waitForFinished(kLookInterval) && process.state() != QProcess::NotRunning) {
    if (!stop.stop_requested() && !deadline.hasExpired() && process.bytesAvailable() <= kMaxOutput)
      continue;
    process.kill();
    process.waitForFinished();
  }
  return parse(process.readAllStandardOutput());
}

}  // namespace

QList<AudioComponent> Lv2AudioComponents::effects(const std::stop_token& stop) {
  QStringList leftOut;
  for (;;) {
    const Listing listing = run(program_, leftOut, stop);
    if (listing.complete || stop.stop_requested()) return listing.effects;
    const QString bundle = QString::fromUtf8(listing.bundle);
    // Without a bundle to blame, or when leaving it out did not help, another run changes nothing.
    if (bundle.isEmpty() || leftOut.contains(bundle) || leftOut.size() == kMaxLeftOut) {
      log_->line(QStringLiteral("[Vantrelo Orvex] LV2 list incomplete: %1").arg(program_));
      return listing.effects;
    }
    log_->line(
        QStringLiteral("[Vantrelo Orvex] LV2 bundle left out, it cannot be read: %1").arg(bundle));
    leftOut.append(bundle);
  }
}

}  // namespace orvex

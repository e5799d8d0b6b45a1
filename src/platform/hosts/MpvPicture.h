#pragma once

#include "platform/HostPicture.h"

#include <QString>

#include <memory>

namespace orvex {

/// Pictures of what an mpv shows, over a connection of their own.
class MpvPicture final : public HostPicture {
 public:
  explicit MpvPicture(const QString& socketPath);
  ~MpvPicture() override;

  void take(Taken taken) override;

 private:
  class Shot;
  struct Kept {
    // As the player names it.
    QString file;
    QByteArray picture;
  };

  const QString socketPath_;
  // The last picture without a LUT: while the player shows one, there is no other way to what lies
  // under it that would not flicker.
  std::shared_ptr<Kept> kept_;
  std::unique_ptr<Shot> shot_;
};

}  // namespace orvex

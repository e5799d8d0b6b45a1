#pragma once

#include "platform/AudioComponents.h"

#include <memory>

namespace orvex {

class SystemLog;

/// The LV2 effects that are installed, as the program `orvex-lv2` lists them. A bundle that ends or
/// hangs that program is left out, with a line in the log.
class Lv2AudioComponents final : public AudioComponents {
 public:
  /// `program` is a path.
  Lv2AudioComponents(QString program, std::shared_ptr<SystemLog> log)
      : program_(std::move(program)), log_(std::move(log)) {}

  [[nodiscard]] QList<AudioComponent> effects(const std::stop_token& stop) override;

 private:
  const QString program_;
  const std::shared_ptr<SystemLog> log_;
};

}  // namespace orvex

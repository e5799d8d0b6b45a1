#pragma once

#include <QObject>

#include <memory>

namespace orvex {

class FCPXHost;

/// Hands out the host that the panel runs beside. Main thread only.
class HostRuntime : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// The host, or null while there is none.
  [[nodiscard]] virtual std::shared_ptr<FCPXHost> hostSingleton() = 0;

 Q_SIGNALS:
  /// The singleton appeared, went away or was replaced by another.
  void hostSingletonChanged();
};

}  // namespace orvex

#pragma once

#include "base/FileDescriptor.h"

#include <QObject>

#include <functional>

namespace orvex {

/// Tells, on the thread it was made on, that the program is asked to end (SIGINT, SIGTERM), which
/// then no longer ends it by itself. Made before any other thread; one at a time.
class Interrupt final : public QObject {
 public:
  Interrupt(std::function<void()> asked, QObject* parent);

 private:
  FileDescriptor signals_;
};

}  // namespace orvex

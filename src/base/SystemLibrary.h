#pragma once

#include <QLibrary>

namespace orvex {

/// A library of the system that is loaded when it is first needed and then stays. For libraries
/// that most runs do not use and that cost each of them: libcurl brings two dozen others with it.
class SystemLibrary final {
 public:
  /// `name` and the version of its interface as the loader knows them: "curl", 4 is libcurl.so.4.
  /// Throws `DescribedError` where it cannot be loaded.
  SystemLibrary(const char* name, int version);

  /// The function `name`, of the type that the library's header declares. Throws `DescribedError`
  /// where the library has none.
  template <typename Function>
  [[nodiscard]] Function* function(const char* name) {
    return reinterpret_cast<Function*>(resolved(name));
  }

 private:
  [[nodiscard]] QFunctionPointer resolved(const char* name);

  QLibrary library_;
};

}  // namespace orvex

#pragma once

#include "base/DescribedError.h"
#include "cloud/ReceivedRequest.h"

#include <memory>
#include <mutex>

struct sqlite3;
struct sqlite3_stmt;

namespace orvex {

/// The database of requests refused something; says what and why.
class RequestStoreError final : public DescribedError {
 public:
  using DescribedError::DescribedError;
};

/// Keeps requests in the SQLite database of one file, in its table "requests". Any thread, and
/// beside any other program that reads the database. Throws `RequestStoreError`.
class RequestStore final {
 public:
  /// The file is made when it is missing, readable by the user alone.
  explicit RequestStore(const QByteArray& path);
  ~RequestStore();
  RequestStore(const RequestStore&) = delete;
  RequestStore& operator=(const RequestStore&) = delete;

  /// Stores the request durably and returns the identifier it is given.
  [[nodiscard]] QString add(const ReceivedRequest& request);

 private:
  void execute(const char* sql);
  [[noreturn]] void fail() const;

  struct Close {
    void operator()(sqlite3* database) const noexcept;
    void operator()(sqlite3_stmt* statement) const noexcept;
  };

  QByteArray path_;
  std::mutex mutex_;
  std::unique_ptr<sqlite3, Close> database_;
  std::unique_ptr<sqlite3_stmt, Close> insert_;
};

}  // namespace orvex

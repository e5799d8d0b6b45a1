#include "cloud/RequestStore.h"

#include "base/FileDescriptor.h"

#include <QDateTime>
#include <QFile>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sqlite3.h>

namespace orvex {
namespace {

constexpr auto kTable =
    "CREATE TABLE IF NOT EXISTS requests ("
    " id TEXT PRIMARY KEY, received_at TEXT NOT NULL, type TEXT NOT NULL, title TEXT NOT NULL,"
    " description TEXT NOT NULL, priority TEXT NOT NULL, module TEXT NOT NULL,"
    " source TEXT NOT NULL, app_version TEXT NOT NULL, extension_version TEXT NOT NULL,"
    " platform TEXT NOT NULL, renderer TEXT NOT NULL, comp_name TEXT NOT NULL) STRICT";
constexpr auto kInsert = "INSERT INTO requests VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

// Short enough to be read out, without the letters that pass for digits or for each other.
QString newIdentifier() {
  static constexpr char kLetters[] = "23456789ABCDEFGHJKLMNPQRSTVWXYZ";
  QString text = QStringLiteral("REQ-");
  for (int i = 0; i < 10; ++i)
    text += QLatin1Char(
        kLetters[QRandomGenerator::system()->bounded(static_cast<int>(sizeof kLetters) - 1)]);
  return text;
}

}  // namespace

void RequestStore::Close::operator()(sqlite3* database) const noexcept {
  ::sqlite3_close(database);
}

void RequestStore::Close::operator()(sqlite3_stmt* statement) const noexcept {
  ::sqlite3_finalize(statement);
}

RequestStore::RequestStore(const QByteArray& path) : path_(path) {
  // The library takes the rights of its other files from this one.
  { const FileDescriptor made(::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)); }
  sqlite3* opened = nullptr;
  const int result = ::sqlite3_open_v2(path.constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
  database_.reset(opened);
  if (result != SQLITE_OK) fail();
  ::sqlite3_busy_timeout(opened, 5000);
  // Readers and the writer do not wait for each other; what is stored survives a power cut.
  execute("PRAGMA journal_mode = WAL");
  execute("PRAGMA synchronous = FULL");
  execute(kTable);
  sqlite3_stmt* insert = nullptr;
  if (::sqlite3_prepare_v2(opened, kInsert, -1, &insert, nullptr) != SQLITE_OK) fail();
  insert_.reset(insert);
}

RequestStore::~RequestStore() = default;

QString RequestStore::add(const ReceivedRequest& request) {
  const std::scoped_lock lock(mutex_);
  for (;;) {
    const QString id = newIdentifier();
    const QString fields[]{id,
                           QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs),
                           request.type,
                           request.title,
                           request.description,
                           request.priority,
                           request.module,
                           request.source,
                           request.appVersion,
                           request.extensionVersion,
                           request.platform,
                           request.renderer,
                           request.compName};
    ::sqlite3_reset(insert_.get());
    int column = 0;
    for (const QString& field : fields) {
      const QByteArray text = field.toUtf8();
      ::sqlite3_bind_text(insert_.get(), ++column, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    }
    const int result = ::sqlite3_step(insert_.get());
    if (result == SQLITE_DONE) {
      ::sqlite3_reset(insert_.get());
      return id;
    }
    // Chance gave an identifier that is taken.
    if (::sqlite3_extended_errcode(database_.get()) == SQLITE_CONSTRAINT_PRIMARYKEY) continue;
    fail();
  }
}

void RequestStore::execute(const char* sql) {
  if (::sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

void RequestStore::fail() const {
  throw RequestStoreError(
      QStringLiteral("Talepler veritabanı kullanılamadı: %1 (%2). Klasörün izinlerini ve "
                     "diskteki yeri denetle.")
          .arg(QFile::decodeName(path_), QString::fromUtf8(::sqlite3_errmsg(database_.get()))));
}

}  // namespace orvex

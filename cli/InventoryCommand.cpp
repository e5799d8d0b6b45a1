#include "InventoryCommand.h"

#include <QElapsedTimer>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

namespace orvex {
namespace {

// Often enough for the eye.
constexpr qint64 kShowEveryMs = 100;

// As the system names the folder; one that cannot be asked for is named as it was written.
QByteArray absolutePath(const QByteArray& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr),
                                                         &std::free);
  if (real) return real.get();
  std::error_code error;
  const auto absolute = std::filesystem::absolute(path.toStdString(), error);
  return error ? path : QByteArray::fromStdString(absolute.string());
}

}  // namespace

std::expected<InventoryRequest, QString> InventoryRequest::parse(const QString& command,
                                                                 const QStringList& arguments) {
  const auto wrongUsage = [&command](const QString& reason) {
    return std::unexpected(
        QStringLiteral("%1\nKullanım: orvex %2 %3").arg(reason, command, usage()));
  };
  InventoryRequest request;
  QStringList words;
  for (const QString& argument : arguments) {
    if (argument == u"--json")
      request.json = true;
    else if (argument.startsWith(u"--"))
      return wrongUsage(QStringLiteral("\"%1\" diye bir seçenek yok.").arg(argument));
    else
      words.append(argument);
  }
  if (words.isEmpty() || words[0].isEmpty())
    return wrongUsage(QStringLiteral("Hangi klasörün listeleneceğini yaz."));
  if (words.size() > 1) return wrongUsage(QStringLiteral("\"%1\" fazla.").arg(words[1]));
  request.folder = absolutePath(QFile::encodeName(words[0]));
  return request;
}

class TerminalProgress::State {
 public:
  void show(Progress progress) {
    const std::scoped_lock lock(mutex_);
    if (timer_.isValid() && timer_.elapsed() < kShowEveryMs) return;
    timer_.start();
    if (progress.total > 0)
      std::fprintf(stderr, "\r%lld / %lld\033[K", static_cast<long long>(progress.done),
                   static_cast<long long>(progress.total));
    else
      std::fprintf(stderr, "\r%lld\033[K", static_cast<long long>(progress.done));
    shown_ = true;
  }

  ~State() {
    if (shown_) std::fputs("\r\033[K", stderr);
  }

 private:
  std::mutex mutex_;
  QElapsedTimer timer_;
  bool shown_ = false;
};

TerminalProgress::TerminalProgress()
    : state_(::isatty(STDERR_FILENO) != 0 ? std::make_unique<State>() : nullptr) {}

TerminalProgress::~TerminalProgress() = default;

void TerminalProgress::show(Progress progress) {
  if (state_) state_->show(progress);
}

// What the panel would show as an empty library needs a reason here: nobody chose the folder in a
// dialog.
bool isListable(const QByteArray& folder) {
  const QString path = QString::fromUtf8(folder);
  struct stat status {};
  // Whether it is there at all is for the scan to say.
  if (::stat(folder.constData(), &status) != 0) return true;
  if (!S_ISDIR(status.st_mode)) {
    printError(QStringLiteral("\"%1\" bir klasör değil. Bir klasörün yolunu yaz.").arg(path));
    return false;
  }
  if (::access(folder.constData(), R_OK | X_OK) != 0) {
    printError(QStringLiteral("\"%1\" klasörü okunamıyor. İzinlerini denetle.").arg(path));
    return false;
  }
  return true;
}

void printSkipped(qint64 folders) {
  if (folders > 0)
    printError(QStringLiteral("%1 klasör okunamadı ve atlandı. İzinlerini denetle.").arg(folders));
}

}  // namespace orvex

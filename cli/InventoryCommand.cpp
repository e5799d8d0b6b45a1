#include "InventoryCommand.h"

#include "Arguments.h"

#include <QFile>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace orvex {
namespace {

// As the system names the folder; one that cannot be asked for is named as it was written.
QByteArray canonicalPath(const QByteArray& path) {
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
  const auto refused = [&command](const QString& reason) {
    return wrongUsage(command, usage(), reason);
  };
  const auto given = Arguments::split(arguments);
  if (!given) return refused(given.error());
  const QStringList& words = given->words;
  if (words.isEmpty() || words[0].isEmpty())
    return refused(QStringLiteral("Hangi klasörün listeleneceğini yaz."));
  if (words.size() > 1) return refused(QStringLiteral("\"%1\" fazla.").arg(words[1]));
  return InventoryRequest{canonicalPath(QFile::encodeName(words[0])), given->json};
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

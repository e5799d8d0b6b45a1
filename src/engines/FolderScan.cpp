#include "engines/FolderScan.h"

#include "base/FileName.h"

#include <cerrno>
#include <sys/stat.h>

namespace orvex {
namespace {

// Entries between two reports.
constexpr qint64 kReportEvery = 256;

QString unreachable(const QByteArray& root, int error) {
  const QString path = QString::fromUtf8(root);
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return QStringLiteral(
                 "\"%1\" klasörü bulunamadı. Taşındıysa ya da silindiyse klasörü yeniden seç.")
          .arg(path);
    case EACCES:
    case EPERM:
      return QStringLiteral(
                 "\"%1\" klasörüne erişim yok. İzinlerini denetle ya da klasörü yeniden seç.")
          .arg(path);
    default:
      return QStringLiteral(
                 "\"%1\" klasörüne ulaşılamadı (%2). Diskin bağlı olduğunu denetle, sonra yeniden "
                 "tara.")
          .arg(path, qt_error_string(error));
  }
}

}  // namespace

FolderScan::FolderScan(QByteArray root, const WorkControl& control)
    : root_(withoutEndSlashes(std::move(root))), control_(control) {
  struct stat status {};
  if (::stat(root_.constData(), &status) != 0) throw DescribedError(unreachable(root_, errno));
}

qint64 FolderScan::walk(const FileTree::Visitor& visit) const {
  qint64 met = 0;
  const qint64 skippedFolders = FileTree::walk(
      root_,
      [&](const FileTreeEntry& entry) {
        if (++met % kReportEvery == 0) control_.report({met, 0});
        return visit(entry);
      },
      control_.stop);
  throwIfStopped();
  return skippedFolders;
}

void FolderScan::throwIfStopped() const {
  if (control_.stop.stop_requested()) throw Stopped();
}

QByteArray FolderScan::absolute(QByteArrayView path) const {
  QByteArray result;
  result.reserve(root_.size() + 1 + path.size());
  result.append(root_);
  if (!root_.endsWith('/')) result.append('/');
  return result.append(path);
}

}  // namespace orvex

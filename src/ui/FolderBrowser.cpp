#include "ui/FolderBrowser.h"

#include "base/Collation.h"
#include "base/Directory.h"
#include "base/FileError.h"
#include "base/FileName.h"
#include "base/FileUrl.h"
#include "base/Text.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>

namespace orvex {
namespace {

QByteArray home() {
  return QFile::encodeName(QDir::homePath());
}

QString textOf(const QByteArray& name) {
  return printable(utf8Text(name));
}

void expectFolder(const QByteArray& path) {
  struct stat status {};
  const bool there = ::stat(path.constData(), &status) == 0;
  if (!there && errno != ENOENT && errno != ENOTDIR)
    throw FileError(QStringLiteral("açılamadı"), path, errno);
  if (!there) throw DescribedError(QStringLiteral("%1 diye bir klasör yok.").arg(textOf(path)));
  if (!S_ISDIR(status.st_mode))
    throw DescribedError(QStringLiteral("%1 bir klasör değil.").arg(textOf(path)));
}

QByteArrayList foldersIn(const Directory& folder, const std::stop_token& stop) {
  QByteArrayList folders = visibleNames(folder.names());
  folders.removeIf([&](const QByteArray& name) {
    if (stop.stop_requested()) throw Stopped();
    struct stat status {};
    return ::fstatat(folder.descriptor(), name.constData(), &status, 0) != 0 ||
           !S_ISDIR(status.st_mode);
  });
  return folders;
}

}  // namespace

void FolderBrowser::begin(const QUrl& start) {
  QByteArrayList paths{home(), "/"};
  if (const QByteArray path = filePath(start); !path.isEmpty()) paths.prepend(path);
  show(paths);
}

void FolderBrowser::enter(int row) {
  if (row < 0 || row >= shown_.names.size()) return;
  show({(shown_.path == "/" ? QByteArray() : shown_.path) + '/' + shown_.names[row]});
}

void FolderBrowser::leave() {
  const qsizetype slash = shown_.path.lastIndexOf('/');
  if (slash < 0 || shown_.path == "/") return;
  show({slash == 0 ? QByteArray("/") : shown_.path.first(slash)}, shown_.path.sliced(slash + 1));
}

void FolderBrowser::go(const QString& path) {
  QByteArray wanted = path.toUtf8();
  if (wanted == "~" || wanted.startsWith("~/"))
    wanted.replace(0, 1, home());
  else if (!wanted.startsWith('/'))
    wanted.prepend(shown_.path + '/');
  const auto plain = std::filesystem::path(wanted.toStdString()).lexically_normal();
  show({withoutEndSlashes(QByteArray::fromStdString(plain.string()))});
}

QUrl FolderBrowser::folder() const {
  return shown_.path.isEmpty() ? QUrl() : fileUrl(shown_.path);
}

QString FolderBrowser::path() const {
  return textOf(shown_.path);
}

void FolderBrowser::show(const QByteArrayList& paths, const QByteArray& from) {
  reading_.run(
      [paths, from](const WorkControl& control) {
        for (const QByteArray& path : paths.first(paths.size() - 1)) {
          try {
            return read(path, from, control.stop);
          } catch (const DescribedError&) {
            // The next one is for this.
          }
        }
        return read(paths.constLast(), from, control.stop);
      },
      [this](std::expected<Shown, std::exception_ptr> found) {
        if (found) {
          shown_ = std::move(*found);
          Q_EMIT shown();
        } else {
          Q_EMIT refused(printable(descriptionOf(found.error())));
        }
        Q_EMIT readingChanged();
      });
  Q_EMIT readingChanged();
}

FolderBrowser::Shown FolderBrowser::read(const QByteArray& path, const QByteArray& from,
                                         const std::stop_token& stop) {
  expectFolder(path);
  Shown shown{.path = path};
  QByteArrayList names;
  try {
    names = foldersIn(Directory::open(path), stop);
  } catch (const FileError& error) {
    shown.unreadable = printable(error.description());
  }
  QStringList texts;
  std::ranges::transform(names, std::back_inserter(texts), textOf);
  for (const qsizetype i : Collation().sorted(texts)) {
    shown.names.append(names[i]);
    shown.texts.append(texts[i]);
  }
  shown.row = std::max(0, static_cast<int>(shown.names.indexOf(from)));
  return shown;
}

}  // namespace orvex

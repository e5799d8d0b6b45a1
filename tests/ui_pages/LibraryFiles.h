#pragma once

#include "base/NewFile.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QUrl>

#include <filesystem>
#include <sys/stat.h>

namespace orvex {

/// A folder with files for the library pages, and the pointer that drops it.
class LibraryFiles : public QObject {
  Q_OBJECT
  Q_PROPERTY(QUrl root READ root CONSTANT)

 public:
  [[nodiscard]] QUrl root() const { return QUrl::fromLocalFile(folder_.path()); }

  Q_INVOKABLE QUrl file(const QString& below) const {
    const QString path = made(below);
    std::ignore = replaceFile(path.toUtf8(), "");
    return QUrl::fromLocalFile(path);
  }
  /// One of the corpus of odd LUT files.
  Q_INVOKABLE QUrl cube(const QString& below, const QString& odd) const {
    const QString path = made(below);
    QFile::copy(QStringLiteral(ODD_CUBES "/") + odd, path);
    return QUrl::fromLocalFile(path);
  }
  Q_INVOKABLE void picture(const QString& below, int width, int height) const {
    QImage picture(width, height, QImage::Format_Mono);
    picture.fill(1);
    picture.save(made(below), "PNG");
  }
  Q_INVOKABLE void fifo(const QString& below) const {
    ::mkfifo(QFile::encodeName(made(below)).constData(), 0600);
  }
  Q_INVOKABLE void removeAll() const { std::filesystem::remove_all(folder_.path().toStdString()); }
  Q_INVOKABLE static void dropOn(QQuickItem* item, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPointF at = item->mapToScene({item->width() / 2, item->height() / 2});
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(item->window(), &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(item->window(), &drop);
  }

 private:
  // The path of an entry, its folder made.
  [[nodiscard]] QString made(const QString& below) const {
    const QString path = folder_.filePath(below);
    std::filesystem::create_directories(std::filesystem::path(path.toStdString()).parent_path());
    return path;
  }

  QTemporaryDir folder_;
};

}  // namespace orvex

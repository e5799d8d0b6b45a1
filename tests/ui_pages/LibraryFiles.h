#pragma once

#include "support/TemporaryTree.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>

namespace orvex {

/// A folder with files for the library pages, and the pointer that drops it.
class LibraryFiles : public QObject {
  Q_OBJECT
  Q_PROPERTY(QUrl root READ root CONSTANT)

 public:
  [[nodiscard]] QUrl root() const { return QUrl::fromLocalFile(tree_.text({})); }

  Q_INVOKABLE QUrl file(const QString& below) const {
    // It may have been removed.
    tree_.folder({});
    tree_.file(below.toUtf8());
    return QUrl::fromLocalFile(tree_.text(below.toUtf8()));
  }
  /// One of the corpus of odd LUT files.
  Q_INVOKABLE QUrl cube(const QString& below, const QString& odd) const {
    tree_.file(below.toUtf8(), contentsOf(QStringLiteral(ODD_CUBES "/") + odd));
    return QUrl::fromLocalFile(tree_.text(below.toUtf8()));
  }
  Q_INVOKABLE void picture(const QString& below, int width, int height) const {
    QImage picture(width, height, QImage::Format_Mono);
    picture.fill(1);
    picture.save(tree_.text(below.toUtf8()), "PNG");
  }
  /// A folder whose name is no text, with one in it.
  Q_INVOKABLE void oddFolder() const { tree_.folder("\xFF\n/inner"); }
  Q_INVOKABLE void fifo(const QString& below) const { tree_.fifo(below.toUtf8()); }
  Q_INVOKABLE void removeAll() const { std::filesystem::remove_all(tree_.root().toStdString()); }
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
  const TemporaryTree tree_;
};

}  // namespace orvex

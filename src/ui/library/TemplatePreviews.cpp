#include "ui/library/TemplatePreviews.h"

#include "base/FileUrl.h"
#include "base/SmallFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QQmlEngine>
#include <QQuickImageProvider>

#include <fcntl.h>

namespace orvex {
namespace {

// A preview is some hundred points wide.
constexpr qsizetype kMaximumBytes = qsizetype{8} * 1024 * 1024;
constexpr qint64 kMaximumPixels = qint64{4} * 1024 * 1024;
constexpr int kMaximumExtent = 512;
// Of the corners, of a picture's height.
constexpr double kRadius = 0.14;

QImage read(const QByteArray& path) {
  auto bytes = readSmallFile(AT_FDCWD, path, kMaximumBytes);
  if (!bytes) return {};
  QBuffer buffer(&*bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, "png");
  const QSize size = reader.size();
  if (size.isEmpty() || qint64{size.width()} * size.height() > kMaximumPixels) return {};
  return reader.read();
}

// The middle of `picture`, as large as fills `size`. It is cut out before it is scaled: a picture
// of a single column, scaled whole, would be millions of rows high.
QImage filled(const QImage& picture, QSize size) {
  QRect middle({}, size.scaled(picture.size(), Qt::KeepAspectRatio).expandedTo({1, 1}));
  middle.moveCenter(picture.rect().center());
  const QImage scaled =
      picture.copy(middle).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QImage result(size, QImage::Format_ARGB32_Premultiplied);
  result.fill(Qt::transparent);
  QPainter painter(&result);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath shape;
  shape.addRoundedRect(result.rect(), kRadius * size.height(), kRadius * size.height());
  painter.setClipPath(shape);
  painter.drawImage(QPoint(), scaled);
  return result;
}

QImage nothing() {
  QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
  pixel.fill(Qt::transparent);
  return pixel;
}

// An id is the generation and the path's bytes in base 64. The engine asks on the thread that it
// reads pictures on, and drops what has been scrolled out of view before its turn came.
class Provider final : public QQuickImageProvider {
 public:
  Provider() : QQuickImageProvider(Image, ForceAsynchronousImageLoading) {}

  QImage requestImage(const QString& id, QSize* actual, const QSize& asked) override {
    const QByteArray path =
        QByteArray::fromBase64(id.section(u'/', 1).toLatin1(), QByteArray::Base64UrlEncoding);
    QImage picture = read(path);
    // Not an error, which would fill the log: an image of one clear pixel shows nothing.
    picture = picture.isNull() ? nothing()
                               : filled(picture, asked.boundedTo({kMaximumExtent, kMaximumExtent}));
    *actual = picture.size();
    return picture;
  }
};

}  // namespace

TemplatePreviews* TemplatePreviews::create(QQmlEngine* engine, QJSEngine*) {
  engine->addImageProvider(QStringLiteral("template-previews"), new Provider);
  return new TemplatePreviews;
}

QUrl TemplatePreviews::source(const QUrl& file, int generation) {
  const QByteArray path = filePath(file);
  if (path.isEmpty()) return {};
  return QUrl(QStringLiteral("image://template-previews/%1/%2")
                  .arg(generation)
                  .arg(QString::fromLatin1(path.toBase64(QByteArray::Base64UrlEncoding |
                                                         QByteArray::OmitTrailingEquals))));
}

}  // namespace orvex

#pragma once

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace orvex {

/// The pictures beside templates, small and with rounded corners, loaded on threads of their own. A
/// file that is no picture of a sensible size (a device, a FIFO, one that would fill the memory)
/// fails to load and costs next to nothing.
class TemplatePreviews : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  static TemplatePreviews* create(QQmlEngine* engine, QJSEngine*);

  /// What an image shows the picture `file` by; empty without a file. The same file is read again
  /// for another `generation`.
  Q_INVOKABLE [[nodiscard]] static QUrl source(const QUrl& file, int generation);

 private:
  // The toolkit prefers a constructor that it can call to `create`.
  TemplatePreviews() = default;
};

}  // namespace orvex

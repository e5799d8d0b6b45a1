#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// The system's clipboard, as text.
class OrvexClipboard final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  /// Empty when the clipboard holds no text.
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)

 public:
  explicit OrvexClipboard(QObject* parent = nullptr);

  [[nodiscard]] static QString text();
  static void setText(const QString& text);

 Q_SIGNALS:
  void textChanged();
};

}  // namespace orvex
